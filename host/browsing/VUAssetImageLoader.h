#pragma once
// Loads the image one view shows of an asset: asks the media provider, hands the image over only
// while the view still wants it, and cancels the request when the view moves on to another asset
// or goes away. Until the image arrives the request is pending work (ui::Settle), so a settled
// screen shows its images.

#include "VUMediaProvider.h"

#include <functional>
#include <memory>

class VUAssetImageLoader {
public:
    using Delivery = std::function<void(const graphics::ImagePtr &image)>;

    VUAssetImageLoader() = default;
    ~VUAssetImageLoader() { cancel(); }
    VUAssetImageLoader(const VUAssetImageLoader &) = delete;
    VUAssetImageLoader &operator=(const VUAssetImageLoader &) = delete;

    // Replaces any load in progress. `deliver` runs on the thread the provider answers on.
    void load(const VUMediaProviderPtr &provider, const VUDisplayAsset &asset, const QSizeF &targetSize, Delivery deliver);
    void cancel();

private:
    struct Ticket {};
    VUMediaProviderPtr m_provider;
    VUMediaRequestID m_requestID = VUInvalidMediaRequestID;
    // Answers for an older ticket are dropped.
    std::shared_ptr<Ticket> m_ticket;
};
