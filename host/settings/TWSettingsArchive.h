#pragma once
// The file the settings tree is kept in: one JSON object keyed by key path, written atomically.

#include <QJsonObject>
#include <QString>

class TWSettingsArchive {
public:
    explicit TWSettingsArchive(QString path) : m_path(std::move(path)) {}

    // False when there is nothing to read. An unreadable file is moved aside under a new name
    // (both paths are logged) so the next save cannot destroy it, and false is returned.
    bool read(QJsonObject *archive) const;
    bool write(const QJsonObject &archive, QString *error = nullptr) const;

private:
    QString m_path;
};
