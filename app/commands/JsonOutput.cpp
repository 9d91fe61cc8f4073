#include "JsonOutput.h"

#include <QJsonDocument>
#include <QTextStream>

namespace app {

JsonArrayWriter::JsonArrayWriter(QTextStream &out) : m_out(out)
{
    m_out << '[' << Qt::flush;
}

JsonArrayWriter::~JsonArrayWriter()
{
    m_out << (m_empty ? "]\n" : "\n]\n") << Qt::flush;
}

void JsonArrayWriter::append(const QJsonObject &object)
{
    m_out << (m_empty ? "\n" : ",\n") << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) << Qt::flush;
    m_empty = false;
}

void writeJsonObject(QTextStream &out, const QJsonObject &object)
{
    out << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Indented)) << Qt::flush;
}

} // namespace app
