#pragma once
// The SQLite catalogue of one library: the schema, the asset and resource rows, and the journal of
// file moves in flight. One connection writes (the library's change queue); readers borrow
// connections from a small pool so that fetches never wait for a change to commit. A catalogue
// opened read-only has no writer: reading works, writing raises DatabaseError.

#include "AssetRecord.h"
#include "Database.h"

#include <QList>
#include <QMutex>
#include <QString>

#include <memory>
#include <vector>

namespace photos::detail {

// A file being placed into the library by a change that has not committed yet.
struct PendingFile {
    qint64 id = 0;
    QString source;      // absolute path it came from
    QString destination; // relative to the library folder
    bool moved = false;  // true when the source is to be moved, false when copied
    qint64 owner = 0;    // the token of the change that placed it (see ChangeLocks); 0: unknown
};

class Catalogue {
public:
    enum Access { ReadWrite, ReadOnly };
    explicit Catalogue(const QString &databasePath, Access access = ReadWrite);
    ~Catalogue();

    // Read-write: creates or upgrades the schema, writing only when it is not current. Read-only:
    // checks that the schema can be read. Throws DatabaseError.
    void open();

    bool isReadOnly() const { return m_access == ReadOnly; }
    // Throws DatabaseError on a read-only catalogue.
    Database &writer();

    template <typename F>
    auto read(F &&function)
    {
        Lease lease(*this);
        return function(*lease.database);
    }

    // Writer only, inside a transaction.
    qint64 insertAsset(AssetRecord &record, const std::vector<ResourceRecord> &resources);
    qint64 addPendingFile(const PendingFile &file);
    void removePendingFile(qint64 id);
    bool hasPendingFiles();
    QList<PendingFile> pendingFiles();

    static std::shared_ptr<const AssetRecord> loadAsset(Database &database, qint64 id);
    static std::shared_ptr<const CollectionRecord> loadCollection(Database &database, qint64 id);
    static std::vector<ResourceRecord> resources(Database &database, qint64 assetId);
    // Every resource path of the catalogue, relative to the library folder.
    static QList<QString> allResourcePaths(Database &database);

private:
    struct Lease {
        explicit Lease(Catalogue &catalogue);
        ~Lease();
        Catalogue &catalogue;
        std::unique_ptr<Database> database;
    };

    QString m_path;
    Access m_access;
    Database::Mode m_readerMode = Database::ReadOnly;
    std::unique_ptr<Database> m_writer;
    QMutex m_poolMutex;
    std::vector<std::unique_ptr<Database>> m_readers;
};

} // namespace photos::detail
