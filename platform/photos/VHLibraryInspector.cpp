#include "VHLibraryInspector.h"

#include "Catalogue.h"
#include "LibraryFolder.h"
#include "VHPhotoLibrary.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

using photos::detail::Database;
using photos::detail::DatabaseError;

namespace {

template <typename F>
bool readCatalogue(VHPhotoLibrary &library, VHError *error, F &&function)
{
    try {
        library.catalogue().read([&](Database &database) {
            function(database);
            return 0;
        });
    } catch (const DatabaseError &failure) {
        if (error)
            *error = VHError(failure.message());
        return false;
    }
    return true;
}

} // namespace

bool VHLibraryInspector::statistics(VHPhotoLibrary &library, VHLibraryStatistics *statistics, VHError *error)
{
    *statistics = {};
    library.ensureHighlightsCurrent();
    const bool read = readCatalogue(library, error, [&](Database &database) {
        auto counts = database.prepare(
            "SELECT COUNT(*), COALESCE(SUM(media_type = 1), 0), COALESCE(SUM(media_type = 2), 0),"
            " COALESCE(SUM((media_subtypes & 8) != 0), 0) FROM asset");
        if (counts.next()) {
            statistics->assetCount = counts.int64(0);
            statistics->photoCount = counts.int64(1);
            statistics->videoCount = counts.int64(2);
            statistics->movingPhotoCount = counts.int64(3);
        }
        auto highlights = database.prepare("SELECT COUNT(*) FROM highlight");
        if (highlights.next())
            statistics->highlightCount = highlights.int64(0);
    });
    if (!read)
        return false;
    QDirIterator it(library.location(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        statistics->bytesOnDisk += it.fileInfo().size();
    }
    return true;
}

bool VHLibraryInspector::verify(VHPhotoLibrary &library, QStringList *differences, VHError *error)
{
    differences->clear();
    QSet<QString> known;
    const bool read = readCatalogue(library, error, [&](Database &database) {
        auto check = database.prepare("PRAGMA quick_check");
        while (check.next())
            if (check.text(0) != QLatin1String("ok"))
                differences->append(QStringLiteral("catalogue damaged: %1").arg(check.text(0)));

        auto resources = database.prepare(
            "SELECT a.uuid, r.path, r.size FROM resource r JOIN asset a ON a.id = r.asset_id ORDER BY r.path");
        while (resources.next()) {
            const QString relative = resources.text(1);
            known.insert(relative);
            const QString absolute = library.resourcePath(relative);
            const QFileInfo file(absolute);
            if (absolute.isEmpty())
                differences->append(QStringLiteral("path outside the library: %1 (asset %2)").arg(relative, resources.text(0)));
            else if (!file.exists())
                differences->append(QStringLiteral("missing file: %1 (asset %2)").arg(relative, resources.text(0)));
            else if (file.size() != resources.int64(2))
                differences->append(QStringLiteral("size differs: %1: catalogue %2 bytes, file %3 bytes")
                                        .arg(relative)
                                        .arg(resources.int64(2))
                                        .arg(file.size()));
        }
        auto bare = database.prepare(
            "SELECT uuid FROM asset WHERE NOT EXISTS (SELECT 1 FROM resource WHERE asset_id = asset.id)");
        while (bare.next())
            differences->append(QStringLiteral("asset without files: %1").arg(bare.text(0)));
        auto pending = database.prepare("SELECT destination FROM pending_file ORDER BY id");
        while (pending.next())
            differences->append(QStringLiteral("unfinished change: %1").arg(pending.text(0)));
    });
    if (!read)
        return false;
    const QString root = library.location() + QLatin1Char('/');
    QDirIterator it(root + QStringLiteral("originals"), QDir::Files | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    QStringList unknown;
    while (it.hasNext()) {
        const QString relative = it.next().mid(root.size());
        if (!known.contains(relative))
            unknown.append(QStringLiteral("file outside the catalogue: %1").arg(relative));
    }
    unknown.sort();
    differences->append(unknown);
    return true;
}
