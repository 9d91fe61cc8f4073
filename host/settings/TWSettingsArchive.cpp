#include "TWSettingsArchive.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QSaveFile>

Q_DECLARE_LOGGING_CATEGORY(lcSettings)

bool TWSettingsArchive::read(QJsonObject *archive) const
{
    QFile file(m_path);
    if (!file.exists())
        return false;
    QString problem;
    if (!file.open(QIODevice::ReadOnly)) {
        problem = file.errorString();
    } else {
        QJsonParseError parseError;
        const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parseError);
        file.close();
        if (parseError.error != QJsonParseError::NoError)
            problem = QStringLiteral("%1 at offset %2").arg(parseError.errorString()).arg(parseError.offset);
        else if (!document.isObject())
            problem = QStringLiteral("not a JSON object");
        else {
            *archive = document.object();
            return true;
        }
    }
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString aside = QStringLiteral("%1.unreadable-%2").arg(m_path, stamp);
    for (int n = 2; QFileInfo::exists(aside); ++n)
        aside = QStringLiteral("%1.unreadable-%2-%3").arg(m_path, stamp).arg(n);
    if (QFile::rename(m_path, aside))
        qCWarning(lcSettings).noquote() << "settings archive" << m_path << "is unreadable (" + problem + "); starting with defaults, the file was kept as" << aside;
    else
        qCWarning(lcSettings).noquote() << "settings archive" << m_path << "is unreadable (" + problem + ") and could not be moved aside to" << aside << "; starting with defaults";
    return false;
}

bool TWSettingsArchive::write(const QJsonObject &archive, QString *error) const
{
    const QFileInfo info(m_path);
    if (!QDir().mkpath(info.absolutePath())) {
        if (error)
            *error = QStringLiteral("cannot create %1").arg(info.absolutePath());
        return false;
    }
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly)
        || file.write(QJsonDocument(archive).toJson(QJsonDocument::Indented)) < 0
        || !file.commit()) {
        if (error)
            *error = QStringLiteral("cannot write %1: %2").arg(m_path, file.errorString());
        qCWarning(lcSettings).noquote() << "cannot save settings to" << m_path << ":" << file.errorString();
        return false;
    }
    return true;
}
