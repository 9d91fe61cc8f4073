#include "VUAssetImageLoader.h"

#include "ui/Settle.h"

void VUAssetImageLoader::load(const VUMediaProviderPtr &provider, const VUDisplayAsset &asset, const QSizeF &targetSize, Delivery deliver)
{
    cancel();
    if (!provider)
        return;
    m_provider = provider;
    m_ticket = std::make_shared<Ticket>();
    ui::PendingWork pending(QStringLiteral("image of %1").arg(asset.uuid()));
    auto handler = [ticket = std::weak_ptr<Ticket>(m_ticket), pending, deliver = std::move(deliver)](const graphics::ImagePtr &image,
                                                                                                     const QVariantMap &) mutable {
        if (!ticket.expired())
            deliver(image);
        pending.end();
    };
    m_requestID = provider->requestImageForAsset(asset, targetSize, VUImageContentMode::AspectFit, {}, std::move(handler));
}

void VUAssetImageLoader::cancel()
{
    if (m_provider && m_requestID != VUInvalidMediaRequestID)
        m_provider->cancelImageRequest(m_requestID);
    m_requestID = VUInvalidMediaRequestID;
    m_ticket.reset();
    m_provider.reset();
}
