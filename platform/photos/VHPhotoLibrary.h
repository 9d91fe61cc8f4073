#pragma once
// A photo library: a SQLite catalogue beside a folder of original files. One shared library lives
// at the default location in the user's data folder unless the host points it elsewhere before
// first use; tests and tools may open others of their own.
//
// Changes are serialised on the library's own queue, and each is one transaction. Reads (fetches,
// thumbnails) run on any thread without waiting for a change.
//
// On disk, under the library's folder (owner-only when the library creates it):
//   Catalogue.sqlite                 the catalogue (with its -wal and -shm files)
//   Changes.lock                     the owner locks of changes in flight
//   originals/<x>/<UUID>.<ext>       the files of each asset, <UUID>-paired.<ext> for a paired video
//   Temporary/FileBackedDebug/       the library services' file-backed debug directory

#include "VHFetchOptions.h"
#include "VHTypes.h"

#include "dispatch/Dispatch.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

namespace photos::detail {
class Catalogue;
class ChangeLocks;
class LibraryFolder;
} // namespace photos::detail

class VHPhotoLibrary : public QObject, public std::enable_shared_from_this<VHPhotoLibrary> {
    Q_OBJECT

public:
    using ChangeBlock = std::function<void()>;
    using CompletionHandler = std::function<void(bool success, const VHError &error)>;

    // Nothing is touched on disk until the library is first used (or open() is called).
    static std::shared_ptr<VHPhotoLibrary> create(const QString &location);
    ~VHPhotoLibrary() override;

    // The data folder's "PhotoLibrary" sub-folder.
    static QString defaultLocation();
    // Where the shared library lives. Only effective before the first sharedPhotoLibrary() call.
    static void setSharedLibraryLocation(const QString &location);
    static QString sharedLibraryLocation();
    static std::shared_ptr<VHPhotoLibrary> sharedPhotoLibrary();

    // Authorized when the shared library can be opened for reading and writing, denied otherwise
    // (the reason is logged). requestAuthorization answers on the main queue.
    static VHAuthorizationStatus authorizationStatus();
    static void requestAuthorization(std::function<void(VHAuthorizationStatus status)> handler);

    // The folder, with the links on the way to it followed.
    QString location() const;
    // Creates the folder and catalogue when missing and reconciles the changes that processes
    // which died left unfinished. A library this user may not write is opened read-only: it can
    // be read, and every change fails. Safe to call again; later calls (of either kind) report
    // the first outcome.
    bool open(VHError *error = nullptr);
    // The same, but a missing library is an error rather than created: for those who only read.
    bool openExisting(VHError *error = nullptr);
    bool isReadOnly() const;

    // Runs `changes` on the library's change queue, then applies every request it made as one
    // transaction and calls `completion` on that queue. Nothing is applied when any request fails.
    void performChanges(ChangeBlock changes, CompletionHandler completion);
    // The same, waiting for the outcome (run at once when called from the change queue itself).
    bool performChangesAndWait(ChangeBlock changes, VHError *error);

    VHFetchOptions librarySpecificFetchOptions();

    // Rebuilds every highlight from the assets (the rules never depend on history, so the result
    // equals the incrementally kept one).
    bool rebuildHighlights(VHError *error = nullptr);

    // The absolute path of a file of the library, or empty when the catalogue names none or it
    // would lead out of the library's folder.
    QString resourcePath(const QString &relativePath) const;
    // Lines from the last reconciliation (empty when the last opening found nothing to finish).
    QStringList reconciliationReport() const;

    // For the library's own classes: the open catalogue, and highlights brought up to date.
    photos::detail::Catalogue &catalogue();
    void ensureHighlightsCurrent();

Q_SIGNALS:
    // Emitted after a change committed or highlights were refreshed; queued to receivers' threads.
    void photoLibraryDidChange();

private:
    explicit VHPhotoLibrary(const QString &location);
    bool _open(bool create, VHError *error);
    QString _openCatalogue(bool create);
    bool _apply(const ChangeBlock &changes, VHError *error);
    void _refreshHighlights();
    void _scheduleHighlightRefresh();
    void _runOnChangeQueue(const dispatch::Block &block);

    std::unique_ptr<photos::detail::LibraryFolder> m_folder;
    std::unique_ptr<photos::detail::Catalogue> m_catalogue;
    std::unique_ptr<photos::detail::ChangeLocks> m_changeLocks;
    dispatch::QueuePtr m_changeQueue;
    std::once_flag m_openOnce;
    QString m_openError;
    QStringList m_reconciliation;
    std::atomic<bool> m_highlightsDirty{false};
    std::atomic<bool> m_refreshScheduled{false};
};
