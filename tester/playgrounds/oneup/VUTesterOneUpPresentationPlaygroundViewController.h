#pragma once
// The 1-Up Presentation playground: the host's one-up browser over the synthetic browsing
// session or the photo library, opened on the item the settings choose; an empty library says so. "Show on Simulated Screen" sends the item on
// screen to the Beamcast screen simulator; when a second real screen is attached, it first
// offers to show the item there instead.

#include "playgrounds/oneup/VUTesterOneUpPresentationSettings.h"

#include <beamcast/VHBeamcastControllerContentProvider.h>
#include <browsing/VUBrowsingSession.h>

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <QPointer>

class QLabel;
class QScreen;
class VUOneUpViewController;
namespace ui {
class Window;
}

class VUTESTER_EXPORT VUTesterOneUpPresentationPlaygroundViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    explicit VUTesterOneUpPresentationPlaygroundViewController(const VUTesterOneUpPresentationSettings &settings, QObject *parent = nullptr);
    ~VUTesterOneUpPresentationPlaygroundViewController() override;

    const VUBrowsingSessionPtr &browsingSession() const { return m_session; }
    // Null until the view is loaded.
    VUOneUpViewController *oneUpViewController() const { return m_oneUp; }
    // Whether the browser has nothing to show.
    bool isEmpty() const;
    // What an external screen shows: the browser's current item.
    std::shared_ptr<VHBeamcastControllerContentProvider> currentItemContentProvider() const;
    // Sends the current item to the simulated screen (replacing what it shows).
    void showCurrentItemOnSimulatedScreen();
    // Shows the current item full screen on `screen`.
    void showCurrentItemOnScreen(QScreen *screen);

    QList<ui::TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

private:
    void _beamcast();
    void _updateEmptyLabel();

    VUBrowsingSessionPtr m_session;
    qint64 m_initialItem;
    QSizeF m_beamcastSize;
    VUOneUpViewController *m_oneUp = nullptr;
    QLabel *m_emptyLabel = nullptr;
    QPointer<ui::Window> m_externalWindow;
};
