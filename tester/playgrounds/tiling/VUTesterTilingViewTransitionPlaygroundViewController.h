#pragma once
// The tiling view transition playground: a tiling view over a synthetic browsing session whose
// items open the one-up browser, over a session of its own, through the one-up presentation
// helper.

#include "shell/VUTesterExport.h"

#include "ui/IndexPath.h"
#include "ui/TappableRows.h"
#include "ui/ViewController.h"

class VUOneUpPresentationHelper;
class VUTilingView;

class VUTESTER_EXPORT VUTesterTilingViewTransitionPlaygroundViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    explicit VUTesterTilingViewTransitionPlaygroundViewController(QObject *parent = nullptr);
    // Null until the view is loaded.
    VUTilingView *tilingView() const { return m_tilingView; }
    VUOneUpPresentationHelper *oneUpPresentationHelper() const { return m_oneUpPresentationHelper; }
    // The items on screen, titled by their assets' identifiers ("1:3"); a tap opens the browser.
    QList<ui::TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

private:
    void _openItemAtIndexPath(const ui::IndexPath &indexPath);

    VUTilingView *m_tilingView = nullptr;
    VUOneUpPresentationHelper *m_oneUpPresentationHelper;
};
