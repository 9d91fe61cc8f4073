#pragma once
// The --json output of the commands, modelled on exiftool -j: an array of objects, written as the
// objects come, one a line, so that a long run can be followed and one that is stopped still
// shows what it did. Keys are the names of the text output in lower camel case.

#include <QJsonObject>

class QTextStream;

namespace app {

class JsonArrayWriter {
public:
    // Opens the array.
    explicit JsonArrayWriter(QTextStream &out);
    // Closes it.
    ~JsonArrayWriter();
    JsonArrayWriter(const JsonArrayWriter &) = delete;
    JsonArrayWriter &operator=(const JsonArrayWriter &) = delete;

    void append(const QJsonObject &object);

private:
    QTextStream &m_out;
    bool m_empty = true;
};

// One object on its own, indented, for commands that describe one thing.
void writeJsonObject(QTextStream &out, const QJsonObject &object);

} // namespace app
