#include "Catalogue.h"

#include <QFileInfo>
#include <QMutexLocker>

namespace photos::detail {

namespace {

constexpr int kSchemaVersion = 2;

// Times are integers (milliseconds UTC; local wall-clock seconds) so that sorting and range scans
// use plain integer indexes; the row id ends every index, so (hidden, creation_ms) alone answers the
// usual fetch, visible assets by date with ties by id, without touching the table. Highlight rows carry the sums their parents aggregate, so a month or
// a year is rebuilt from its children's rows rather than from every asset.
const char kSchema[] = R"sql(
CREATE TABLE IF NOT EXISTS asset (
  id INTEGER PRIMARY KEY,
  uuid TEXT NOT NULL UNIQUE,
  media_type INTEGER NOT NULL,
  media_subtypes INTEGER NOT NULL,
  pixel_width INTEGER NOT NULL,
  pixel_height INTEGER NOT NULL,
  creation_ms INTEGER NOT NULL,
  local_seconds INTEGER NOT NULL,
  latitude REAL,
  longitude REAL,
  duration REAL NOT NULL,
  favorite INTEGER NOT NULL DEFAULT 0,
  hidden INTEGER NOT NULL DEFAULT 0,
  pairing_identifier TEXT,
  display_time_value INTEGER NOT NULL DEFAULT 0,
  display_time_scale INTEGER NOT NULL DEFAULT 1,
  added_ms INTEGER NOT NULL
);
CREATE INDEX IF NOT EXISTS asset_by_hidden_creation ON asset(hidden, creation_ms);
CREATE INDEX IF NOT EXISTS asset_by_local ON asset(local_seconds);
CREATE TABLE IF NOT EXISTS resource (
  asset_id INTEGER NOT NULL REFERENCES asset(id) ON DELETE CASCADE,
  type INTEGER NOT NULL,
  path TEXT NOT NULL UNIQUE,
  size INTEGER NOT NULL,
  original_filename TEXT NOT NULL,
  PRIMARY KEY (asset_id, type)
);
CREATE TABLE IF NOT EXISTS pending_file (
  id INTEGER PRIMARY KEY,
  source TEXT NOT NULL,
  destination TEXT NOT NULL,
  moved INTEGER NOT NULL,
  owner INTEGER NOT NULL DEFAULT 0
);
CREATE TABLE IF NOT EXISTS highlight (
  id INTEGER PRIMARY KEY,
  uuid TEXT NOT NULL UNIQUE,
  subtype INTEGER NOT NULL,
  period_key INTEGER NOT NULL,
  local_start INTEGER NOT NULL,
  local_end INTEGER NOT NULL,
  start_ms INTEGER NOT NULL,
  end_ms INTEGER NOT NULL,
  title TEXT NOT NULL,
  subtitle TEXT NOT NULL,
  asset_count INTEGER NOT NULL,
  photo_count INTEGER NOT NULL,
  video_count INTEGER NOT NULL,
  located_count INTEGER NOT NULL,
  favorite_count INTEGER NOT NULL,
  curated INTEGER NOT NULL,
  enriched INTEGER NOT NULL,
  promotion_score REAL NOT NULL,
  key_asset_id INTEGER,
  UNIQUE (subtype, period_key)
);
CREATE INDEX IF NOT EXISTS highlight_by_start ON highlight(subtype, start_ms, period_key);
CREATE TABLE IF NOT EXISTS highlight_asset (
  highlight_id INTEGER NOT NULL REFERENCES highlight(id) ON DELETE CASCADE,
  kind INTEGER NOT NULL,
  position INTEGER NOT NULL,
  asset_id INTEGER NOT NULL,
  PRIMARY KEY (highlight_id, kind, position)
) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS highlight_dirty (
  day INTEGER PRIMARY KEY
) WITHOUT ROWID;
)sql";

const char kAssetColumns[] =
    "SELECT id, uuid, media_type, media_subtypes, pixel_width, pixel_height, creation_ms, local_seconds,"
    " latitude, longitude, duration, favorite, hidden, pairing_identifier, display_time_value,"
    " display_time_scale, added_ms FROM asset WHERE id = ?";

// The statement ends before this returns: a statement still stepping would hold its read
// transaction into a following BEGIN IMMEDIATE, which then fails at once with "database is
// locked" whenever another connection writes, instead of waiting its turn.
qint64 schemaVersion(Database &database)
{
    auto version = database.prepare("PRAGMA user_version");
    return version.next() ? version.int64(0) : 0;
}

void checkNotNewer(qint64 version)
{
    if (version > kSchemaVersion)
        throw DatabaseError(QStringLiteral("the catalogue was made by a newer version (schema %1)").arg(version));
}

} // namespace

Catalogue::Catalogue(const QString &databasePath, Access access) : m_path(databasePath), m_access(access)
{
}

Catalogue::~Catalogue() = default;

void Catalogue::open()
{
    if (m_access == ReadOnly) {
        // Nobody writes a catalogue without its log: read it as it stands, creating nothing.
        if (!QFileInfo::exists(m_path + QStringLiteral("-wal")))
            m_readerMode = Database::Immutable;
        const qint64 version = read(schemaVersion);
        checkNotNewer(version);
        if (version == 0)
            throw DatabaseError(QStringLiteral("the catalogue %1 holds no photo library").arg(m_path));
        return;
    }
    m_writer = std::make_unique<Database>(m_path, Database::ReadWrite);
    m_writer->exec("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA foreign_keys=ON;");
    // Every opening by every process passes here; only the first of a version writes.
    if (schemaVersion(*m_writer) == kSchemaVersion)
        return;
    Transaction transaction(*m_writer);
    const qint64 current = schemaVersion(*m_writer);
    checkNotNewer(current);
    if (current < kSchemaVersion) {
        m_writer->exec(kSchema);
        if (current == 1)
            m_writer->exec("ALTER TABLE pending_file ADD COLUMN owner INTEGER NOT NULL DEFAULT 0");
        m_writer->exec("PRAGMA user_version = 2");
    }
    transaction.commit();
}

Database &Catalogue::writer()
{
    if (!m_writer)
        throw DatabaseError(QStringLiteral("the catalogue %1 is read-only").arg(m_path));
    return *m_writer;
}

qint64 Catalogue::insertAsset(AssetRecord &record, const std::vector<ResourceRecord> &resources)
{
    auto insert = writer().prepare(
        "INSERT INTO asset (uuid, media_type, media_subtypes, pixel_width, pixel_height, creation_ms,"
        " local_seconds, latitude, longitude, duration, favorite, hidden, pairing_identifier,"
        " display_time_value, display_time_scale, added_ms)"
        " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    insert.bind(1, record.uuid)
        .bind(2, qint64(record.mediaType))
        .bind(3, qint64(record.mediaSubtypes))
        .bind(4, qint64(record.pixelWidth))
        .bind(5, qint64(record.pixelHeight))
        .bind(6, record.creationMs)
        .bind(7, record.localSeconds);
    if (record.location)
        insert.bind(8, record.location->latitude).bind(9, record.location->longitude);
    else
        insert.bindNull(8).bindNull(9);
    insert.bind(10, record.duration)
        .bind(11, qint64(record.favorite))
        .bind(12, qint64(record.hidden));
    if (record.pairingIdentifier.isEmpty())
        insert.bindNull(13);
    else
        insert.bind(13, record.pairingIdentifier);
    insert.bind(14, qint64(record.imageDisplayTime.value))
        .bind(15, qint64(record.imageDisplayTime.timescale))
        .bind(16, record.addedMs);
    insert.run();
    record.id = m_writer->lastInsertId();

    for (const ResourceRecord &resource : resources) {
        auto add = m_writer->prepare(
            "INSERT INTO resource (asset_id, type, path, size, original_filename) VALUES (?, ?, ?, ?, ?)");
        add.bind(1, record.id)
            .bind(2, qint64(resource.type))
            .bind(3, resource.relativePath)
            .bind(4, resource.size)
            .bind(5, resource.originalFilename)
            .run();
    }
    return record.id;
}

qint64 Catalogue::addPendingFile(const PendingFile &file)
{
    auto insert = writer().prepare("INSERT INTO pending_file (source, destination, moved, owner) VALUES (?, ?, ?, ?)");
    insert.bind(1, file.source).bind(2, file.destination).bind(3, qint64(file.moved)).bind(4, file.owner).run();
    return m_writer->lastInsertId();
}

void Catalogue::removePendingFile(qint64 id)
{
    writer().prepare("DELETE FROM pending_file WHERE id = ?").bind(1, id).run();
}

bool Catalogue::hasPendingFiles()
{
    auto query = writer().prepare("SELECT EXISTS (SELECT 1 FROM pending_file)");
    return query.next() && query.int64(0) != 0;
}

QList<PendingFile> Catalogue::pendingFiles()
{
    QList<PendingFile> files;
    auto query = writer().prepare("SELECT id, source, destination, moved, owner FROM pending_file ORDER BY id");
    while (query.next())
        files.append({query.int64(0), query.text(1), query.text(2), query.int64(3) != 0, query.int64(4)});
    return files;
}

std::shared_ptr<const AssetRecord> Catalogue::loadAsset(Database &database, qint64 id)
{
    auto query = database.prepare(kAssetColumns);
    query.bind(1, id);
    if (!query.next())
        return nullptr;
    auto record = std::make_shared<AssetRecord>();
    record->id = query.int64(0);
    record->uuid = query.text(1);
    record->mediaType = VHAssetMediaType(query.int64(2));
    record->mediaSubtypes = quint64(query.int64(3));
    record->pixelWidth = int(query.int64(4));
    record->pixelHeight = int(query.int64(5));
    record->creationMs = query.int64(6);
    record->localSeconds = query.int64(7);
    if (!query.isNull(8))
        record->location = VHLocation{query.real(8), query.real(9)};
    record->duration = query.real(10);
    record->favorite = query.int64(11) != 0;
    record->hidden = query.int64(12) != 0;
    record->pairingIdentifier = query.text(13);
    record->imageDisplayTime = movie::MediaTime{query.int64(14), qint32(query.int64(15))};
    record->addedMs = query.int64(16);
    return record;
}

std::shared_ptr<const CollectionRecord> Catalogue::loadCollection(Database &database, qint64 id)
{
    auto query = database.prepare(
        "SELECT id, uuid, subtype, local_start, local_end, start_ms, end_ms, title, subtitle, asset_count,"
        " photo_count, video_count, curated, enriched, promotion_score, key_asset_id FROM highlight WHERE id = ?");
    query.bind(1, id);
    if (!query.next())
        return nullptr;
    auto record = std::make_shared<CollectionRecord>();
    record->id = query.int64(0);
    record->uuid = query.text(1);
    record->subtype = int(query.int64(2));
    record->localStart = query.int64(3);
    record->localEnd = query.int64(4);
    record->startMs = query.int64(5);
    record->endMs = query.int64(6);
    record->title = query.text(7);
    record->subtitle = query.text(8);
    record->assetCount = query.int64(9);
    record->photoCount = query.int64(10);
    record->videoCount = query.int64(11);
    record->curated = query.int64(12) != 0;
    record->enriched = query.int64(13) != 0;
    record->promotionScore = query.real(14);
    record->keyAssetId = query.int64(15);
    return record;
}

std::vector<ResourceRecord> Catalogue::resources(Database &database, qint64 assetId)
{
    std::vector<ResourceRecord> list;
    auto query = database.prepare(
        "SELECT type, path, size, original_filename FROM resource WHERE asset_id = ? ORDER BY type");
    query.bind(1, assetId);
    while (query.next())
        list.push_back({VHAssetResourceType(query.int64(0)), query.text(1), query.int64(2), query.text(3)});
    return list;
}

QList<QString> Catalogue::allResourcePaths(Database &database)
{
    QList<QString> paths;
    auto query = database.prepare("SELECT path FROM resource");
    while (query.next())
        paths.append(query.text(0));
    return paths;
}

Catalogue::Lease::Lease(Catalogue &owner) : catalogue(owner)
{
    QMutexLocker locker(&catalogue.m_poolMutex);
    if (!catalogue.m_readers.empty()) {
        database = std::move(catalogue.m_readers.back());
        catalogue.m_readers.pop_back();
    }
    locker.unlock();
    if (!database)
        database = std::make_unique<Database>(catalogue.m_path, catalogue.m_readerMode);
}

Catalogue::Lease::~Lease()
{
    QMutexLocker locker(&catalogue.m_poolMutex);
    catalogue.m_readers.push_back(std::move(database));
}

} // namespace photos::detail
