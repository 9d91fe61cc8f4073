#include "VHPhotoLibrary.h"

#include "AssetImporter.h"
#include "Catalogue.h"
#include "ChangeLocks.h"
#include "ChangeWriter.h"
#include "HighlightStore.h"
#include "LibraryFolder.h"
#include "PhotosLogging.h"
#include "VHAssetChangeRequest.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QStandardPaths>

namespace {

// Changes arriving faster than this are folded into one highlight refresh.
constexpr std::chrono::milliseconds kHighlightRefreshDelay{500};

QMutex g_sharedMutex;
QString g_sharedLocation;
std::shared_ptr<VHPhotoLibrary> g_sharedLibrary;

} // namespace

std::shared_ptr<VHPhotoLibrary> VHPhotoLibrary::create(const QString &location)
{
    return std::shared_ptr<VHPhotoLibrary>(new VHPhotoLibrary(location));
}

VHPhotoLibrary::VHPhotoLibrary(const QString &location)
    : m_folder(std::make_unique<photos::detail::LibraryFolder>(location))
    , m_changeQueue(dispatch::Queue::createSerial("vh.photolibrary.changes"))
{
}

VHPhotoLibrary::~VHPhotoLibrary() = default;

QString VHPhotoLibrary::defaultLocation()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/PhotoLibrary");
}

void VHPhotoLibrary::setSharedLibraryLocation(const QString &location)
{
    QMutexLocker locker(&g_sharedMutex);
    if (g_sharedLibrary)
        qCWarning(lcPhotos) << "the shared library is already open at" << g_sharedLibrary->location();
    g_sharedLocation = location;
}

QString VHPhotoLibrary::sharedLibraryLocation()
{
    QMutexLocker locker(&g_sharedMutex);
    return g_sharedLibrary ? g_sharedLibrary->location()
                           : (g_sharedLocation.isEmpty() ? defaultLocation() : g_sharedLocation);
}

std::shared_ptr<VHPhotoLibrary> VHPhotoLibrary::sharedPhotoLibrary()
{
    QMutexLocker locker(&g_sharedMutex);
    if (!g_sharedLibrary)
        g_sharedLibrary = create(g_sharedLocation.isEmpty() ? defaultLocation() : g_sharedLocation);
    return g_sharedLibrary;
}

VHAuthorizationStatus VHPhotoLibrary::authorizationStatus()
{
    VHError error;
    if (sharedPhotoLibrary()->open(&error))
        return VHAuthorizationStatus::Authorized;
    qCWarning(lcPhotos).noquote() << "photo library access denied:" << error.debugDescription();
    return VHAuthorizationStatus::Denied;
}

void VHPhotoLibrary::requestAuthorization(std::function<void(VHAuthorizationStatus status)> handler)
{
    dispatch::Queue::global()->async([handler = std::move(handler)] {
        const VHAuthorizationStatus status = authorizationStatus();
        dispatch::Queue::main()->async([handler, status] { handler(status); });
    });
}

QString VHPhotoLibrary::location() const
{
    return m_folder->root();
}

bool VHPhotoLibrary::open(VHError *error)
{
    return _open(true, error);
}

bool VHPhotoLibrary::openExisting(VHError *error)
{
    return _open(false, error);
}

bool VHPhotoLibrary::isReadOnly() const
{
    return m_catalogue && m_catalogue->isReadOnly();
}

bool VHPhotoLibrary::_open(bool create, VHError *error)
{
    std::call_once(m_openOnce, [this, create] { m_openError = _openCatalogue(create); });
    if (!m_catalogue && error)
        *error = VHError(QStringLiteral("cannot open the photo library at %1: %2").arg(location(), m_openError));
    return m_catalogue != nullptr;
}

// Opens the catalogue into m_catalogue; the reason it cannot otherwise.
QString VHPhotoLibrary::_openCatalogue(bool create)
{
    const QString databasePath = m_folder->databasePath();
    const QFileInfo database(databasePath);
    if (!database.exists() && !create)
        return QStringLiteral("there is no photo library there");
    // A new catalogue beside the originals of an old one would hide them all.
    if ((!database.exists() || database.size() == 0) && m_folder->holdsOriginals())
        return QStringLiteral("the catalogue %1 is damaged (%2) while the library holds original files; restore it "
                              "from a backup or move the library aside")
            .arg(databasePath, database.exists() ? QStringLiteral("it is empty") : QStringLiteral("it is missing"));
    const bool readOnly = database.exists() && !m_folder->isWritable();
    if (!readOnly) {
        QString reason;
        if (!m_folder->create(&reason))
            return reason;
    }
    auto catalogue = std::make_unique<photos::detail::Catalogue>(
        databasePath, readOnly ? photos::detail::Catalogue::ReadOnly : photos::detail::Catalogue::ReadWrite);
    auto locks = std::make_unique<photos::detail::ChangeLocks>(m_folder->changeLockPath());
    try {
        catalogue->open();
        if (!readOnly) {
            // SQLite gives its journal files the catalogue's permissions.
            QFile::setPermissions(databasePath, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
            m_reconciliation = photos::detail::ChangeWriter(*catalogue, *m_folder, *locks).reconcile();
            for (const QString &line : std::as_const(m_reconciliation))
                qCInfo(lcPhotos).noquote() << "reconciled an interrupted change:" << line;
            m_highlightsDirty = photos::detail::HighlightStore(catalogue->writer()).hasDirtyDays();
        }
    } catch (const photos::detail::DatabaseError &failure) {
        return failure.message();
    }
    m_catalogue = std::move(catalogue);
    m_changeLocks = std::move(locks);
    return {};
}

photos::detail::Catalogue &VHPhotoLibrary::catalogue()
{
    VHError error;
    if (!open(&error))
        throw photos::detail::DatabaseError(error.debugDescription());
    return *m_catalogue;
}

void VHPhotoLibrary::performChanges(ChangeBlock changes, CompletionHandler completion)
{
    m_changeQueue->async([self = shared_from_this(), changes = std::move(changes), completion = std::move(completion)] {
        VHError error;
        const bool success = self->_apply(changes, &error);
        if (completion)
            completion(success, error);
    });
}

bool VHPhotoLibrary::performChangesAndWait(ChangeBlock changes, VHError *error)
{
    bool success = false;
    VHError failure;
    _runOnChangeQueue([&] { success = _apply(changes, &failure); });
    if (error)
        *error = failure;
    return success;
}

bool VHPhotoLibrary::_apply(const ChangeBlock &changes, VHError *error)
{
    if (!open(error))
        return false;
    if (m_catalogue->isReadOnly()) {
        *error = VHError(QStringLiteral("the photo library at %1 is read-only").arg(location()));
        return false;
    }
    QList<photos::detail::PreparedAsset> assets;
    {
        photos::detail::ChangeSet change;
        changes();
        for (const auto &request : change.creationRequests()) {
            photos::detail::PreparedAsset asset;
            QString reason;
            if (!photos::detail::AssetImporter::prepare(*request, &asset, &reason)) {
                *error = VHError(reason);
                return false;
            }
            assets.append(std::move(asset));
        }
    }
    if (assets.isEmpty())
        return true;
    QString reason;
    if (!photos::detail::ChangeWriter(*m_catalogue, *m_folder, *m_changeLocks).apply(assets, &reason)) {
        *error = VHError(reason);
        return false;
    }
    m_highlightsDirty = true;
    _scheduleHighlightRefresh();
    Q_EMIT photoLibraryDidChange();
    return true;
}

void VHPhotoLibrary::_scheduleHighlightRefresh()
{
    if (m_refreshScheduled.exchange(true))
        return;
    std::weak_ptr<VHPhotoLibrary> weak = shared_from_this();
    dispatch::after(m_changeQueue, kHighlightRefreshDelay, [weak] {
        if (auto self = weak.lock()) {
            self->m_refreshScheduled = false;
            self->_refreshHighlights();
        }
    });
}

void VHPhotoLibrary::_runOnChangeQueue(const dispatch::Block &block)
{
    if (dispatch::Queue::current() == m_changeQueue.get())
        block();
    else
        m_changeQueue->sync(block);
}

void VHPhotoLibrary::_refreshHighlights()
{
    if (!m_highlightsDirty.exchange(false))
        return;
    try {
        photos::detail::HighlightStore(m_catalogue->writer()).refreshDirty();
    } catch (const photos::detail::DatabaseError &failure) {
        // The days stay marked in the catalogue; the next refresh tries them again.
        m_highlightsDirty = true;
        qCWarning(lcPhotos).noquote() << "could not refresh highlights:" << failure.message();
        return;
    }
    Q_EMIT photoLibraryDidChange();
}

void VHPhotoLibrary::ensureHighlightsCurrent()
{
    if (m_highlightsDirty && open() && !m_catalogue->isReadOnly())
        _runOnChangeQueue([this] { _refreshHighlights(); });
}

bool VHPhotoLibrary::rebuildHighlights(VHError *error)
{
    if (!open(error))
        return false;
    QString reason;
    _runOnChangeQueue([&] {
        try {
            photos::detail::HighlightStore(m_catalogue->writer()).rebuildAll();
            m_highlightsDirty = false;
        } catch (const photos::detail::DatabaseError &failure) {
            reason = failure.message();
        }
    });
    if (!reason.isEmpty()) {
        if (error)
            *error = VHError(reason);
        return false;
    }
    Q_EMIT photoLibraryDidChange();
    return true;
}

VHFetchOptions VHPhotoLibrary::librarySpecificFetchOptions()
{
    VHFetchOptions options;
    options.setPhotoLibrary(shared_from_this());
    return options;
}

QString VHPhotoLibrary::resourcePath(const QString &relativePath) const
{
    return m_folder->resolve(relativePath);
}

QStringList VHPhotoLibrary::reconciliationReport() const
{
    return m_reconciliation;
}
