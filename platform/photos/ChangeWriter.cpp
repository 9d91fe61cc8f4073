#include "ChangeWriter.h"

#include "HighlightStore.h"
#include "PhotosLogging.h"

#include <QFileInfo>

namespace photos::detail {

bool ChangeWriter::apply(QList<PreparedAsset> &assets, QString *error)
{
    const ChangeOwnership ownership(m_locks, error);
    if (!ownership.token())
        return false;
    QList<PendingFile> journal;
    try {
        Transaction transaction(m_catalogue.writer());
        for (const PreparedAsset &asset : assets) {
            for (const PreparedFile &file : asset.files) {
                PendingFile pending{0, file.source, file.resource.relativePath, file.move, ownership.token()};
                pending.id = m_catalogue.addPendingFile(pending);
                journal.append(pending);
            }
        }
        transaction.commit();
    } catch (const DatabaseError &failure) {
        *error = failure.message();
        return false;
    }

    QList<PendingFile> placed;
    for (const PendingFile &file : journal) {
        if (!m_folder.place(file.source, file.destination, file.moved, error)) {
            _undo(placed, journal);
            return false;
        }
        placed.append(file);
    }

    try {
        Transaction transaction(m_catalogue.writer());
        HighlightStore highlights(m_catalogue.writer());
        for (PreparedAsset &asset : assets) {
            std::vector<ResourceRecord> resources;
            for (const PreparedFile &file : asset.files)
                resources.push_back(file.resource);
            m_catalogue.insertAsset(asset.record, resources);
            highlights.markDirty(localDayOf(asset.record.localSeconds));
        }
        for (const PendingFile &file : journal)
            m_catalogue.removePendingFile(file.id);
        transaction.commit();
    } catch (const DatabaseError &failure) {
        *error = failure.message();
        _undo(placed, journal);
        return false;
    }
    return true;
}

void ChangeWriter::_undo(const QList<PendingFile> &placed, const QList<PendingFile> &journal)
{
    for (auto file = placed.crbegin(); file != placed.crend(); ++file) {
        QString error;
        if (!m_folder.unplace(file->source, file->destination, file->moved, &error)) {
            // The journal entry stays, so the next opening tries again; the file is not lost.
            qCWarning(lcPhotos) << "could not undo a failed change:" << error;
            return;
        }
    }
    try {
        Transaction transaction(m_catalogue.writer());
        for (const PendingFile &file : journal)
            m_catalogue.removePendingFile(file.id);
        transaction.commit();
    } catch (const DatabaseError &failure) {
        qCWarning(lcPhotos) << "could not clear the change journal:" << failure.message();
    }
}

QStringList ChangeWriter::reconcile()
{
    QStringList report;
    if (!m_catalogue.hasPendingFiles())
        return report;
    // Inside the write lock no change can commit, so an entry read here is still pending, and a
    // live owner still holds its token.
    Transaction transaction(m_catalogue.writer());
    const QList<PendingFile> pending = m_catalogue.pendingFiles();
    const QList<QString> paths = Catalogue::allResourcePaths(m_catalogue.writer());
    const QSet<QString> recorded(paths.begin(), paths.end());
    for (const PendingFile &file : pending) {
        if (m_locks.isHeld(file.owner))
            continue;
        // A committed change deletes its journal entries in the same transaction, so a recorded
        // destination here could only come from a hand-edited catalogue: leave that file alone.
        if (!recorded.contains(file.destination)) {
            const bool present = QFileInfo::exists(m_folder.resolve(file.destination));
            QString error;
            if (!m_folder.unplace(file.source, file.destination, file.moved, &error)) {
                report << QStringLiteral("kept %1: %2").arg(file.destination, error);
                continue;
            }
            if (present)
                report << (file.moved ? QStringLiteral("returned %1 to %2").arg(file.destination, file.source)
                                      : QStringLiteral("removed the unfinished copy %1").arg(file.destination));
        }
        m_catalogue.removePendingFile(file.id);
    }
    transaction.commit();
    return report;
}

} // namespace photos::detail
