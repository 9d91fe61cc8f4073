#pragma once
// The simulated external screen: a dark border round the host's Beamcast root view controller,
// which shows the provider's content. The content takes no input, so touches reach the screen's
// own recognisers (drag and double tap).

#include "shell/VUTesterExport.h"

#include <beamcast/VHBeamcastControllerContentProvider.h>

#include "ui/ViewController.h"

#include <memory>

class VUBeamcastRootViewController;

class VUTESTER_EXPORT VUTesterBeamcastScreenSimulatorViewController : public ui::ViewController {
    Q_OBJECT
public:
    explicit VUTesterBeamcastScreenSimulatorViewController(std::shared_ptr<VHBeamcastControllerContentProvider> contentProvider,
                                                           QObject *parent = nullptr);

    const std::shared_ptr<VHBeamcastControllerContentProvider> &contentProvider() const { return m_contentProvider; }
    // Null until the view is loaded.
    VUBeamcastRootViewController *rootViewController() const { return m_rootViewController; }

protected:
    void viewDidLoad() override;

private:
    std::shared_ptr<VHBeamcastControllerContentProvider> m_contentProvider;
    VUBeamcastRootViewController *m_rootViewController = nullptr;
};
