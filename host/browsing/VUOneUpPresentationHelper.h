#pragma once
// Opens the one-up browser from a screen that shows assets. Each opening makes a browsing session
// of its own with the creation block, finds the tapped asset in that session's data source (the
// reference may come from another one) and pushes a browser on it over the screen's navigation
// stack, or presents it when the screen has none.

#include "VUBrowsingSession.h"
#include "VUOneUpViewController.h"

#include <QObject>
#include <QPointer>

#include <functional>

class VUOneUpPresentationHelper : public QObject {
    Q_OBJECT
public:
    using BrowsingSessionCreationBlock = std::function<VUBrowsingSessionPtr()>;

    VUOneUpPresentationHelper(ui::ViewController *presentingViewController, BrowsingSessionCreationBlock browsingSessionCreationBlock);

    // False, showing nothing, when the new session has no such asset.
    bool presentOneUpForAssetReference(const VUAssetReference &assetReference, bool animated);
    // The browser shown last, while it exists.
    VUOneUpViewController *oneUpViewController() const { return m_oneUp; }

private:
    ui::ViewController *m_presenting;
    BrowsingSessionCreationBlock m_createSession;
    QPointer<VUOneUpViewController> m_oneUp;
};
