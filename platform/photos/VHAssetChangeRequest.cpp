#include "VHAssetChangeRequest.h"

#include <QUrl>
#include <QUuid>
#include <QtGlobal>

namespace photos::detail {

namespace {
thread_local ChangeSet *tl_current = nullptr;
}

ChangeSet::ChangeSet() : m_previous(tl_current)
{
    tl_current = this;
}

ChangeSet::~ChangeSet()
{
    tl_current = m_previous;
}

ChangeSet *ChangeSet::current()
{
    return tl_current;
}

VHAssetCreationRequest *ChangeSet::addCreationRequest()
{
    m_requests.push_back(std::make_unique<VHAssetCreationRequest>());
    return m_requests.back().get();
}

} // namespace photos::detail

VHAssetCreationRequest::VHAssetCreationRequest()
    : m_localIdentifier(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper())
{
}

VHAssetCreationRequest *VHAssetCreationRequest::creationRequestForAsset()
{
    photos::detail::ChangeSet *change = photos::detail::ChangeSet::current();
    if (!change)
        qFatal("VHAssetCreationRequest::creationRequestForAsset called outside performChanges");
    return change->addCreationRequest();
}

void VHAssetCreationRequest::addResourceWithType(VHAssetResourceType type, const QString &fileURL,
                                                 const VHAssetResourceCreationOptions &options)
{
    const QUrl url(fileURL);
    const QString path = url.isLocalFile() ? url.toLocalFile() : fileURL;
    m_resources.push_back({type, path, options});
}
