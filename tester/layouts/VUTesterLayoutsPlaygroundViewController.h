#pragma once
// Shows, side by side in one zoomable strip, what a layout generator makes of 1, 2, 3 ... items up
// to the configured maximum, so a designer sees how the layout evolves as items are added. All
// views share one input manager: a tap on an item changes that item in every view. A toolbar
// picks what a tap does and shows a legend of the kind symbols.

#include "layouts/VUTesterLayoutGeneratorOutputView.h"

#include "ui/ScrollView.h"
#include "ui/ViewController.h"

#include <QList>

namespace ui {
class GestureRecognizer;
class SegmentedControl;
}

class VUTESTER_EXPORT VUTesterLayoutsPlaygroundViewController : public ui::ViewController, public ui::ScrollViewDelegate, public VXChangeObserver {
    Q_OBJECT
public:
    VUTesterLayoutsPlaygroundViewController(VXLayoutGeneratorFactory layoutGeneratorFactory, VUTesterLayoutInput::IndexMap initialWeights,
                                            VUTesterLayoutsPlaygroundSettings *settings, QObject *parent = nullptr);
    ~VUTesterLayoutsPlaygroundViewController() override;

    const VXLayoutGeneratorFactory &layoutGeneratorFactory() const { return m_layoutGeneratorFactory; }
    VUTesterLayoutsPlaygroundSettings *settings() const { return m_settings; }
    const std::shared_ptr<VUTesterLayoutInputManager> &inputManager() const { return m_inputManager; }
    // In order of increasing item count; empty until the view loads.
    const QList<VUTesterLayoutGeneratorOutputView *> &outputViews() const { return m_outputViews; }
    ui::ScrollView *scrollView() const { return m_scrollView; }
    ui::SegmentedControl *segmentedControl() const { return m_segmentedControl; }

    // The smallest item count shown for at most `maximumNumberOfItems` items per view and about
    // `maximumTotalNumberOfItems` items in all; one view shows each count from there up to the
    // maximum (none when it is past the maximum).
    static qint64 firstItemCount(qint64 maximumNumberOfItems, qint64 maximumTotalNumberOfItems);

    QWidget *viewForZooming(ui::ScrollView *scrollView) override;
    void didZoom(ui::ScrollView *scrollView) override;
    void didChange(VXObservable *observable, quint64 change, void *context) override;

protected:
    void viewDidLoad() override;

private:
    void _handleTap(ui::GestureRecognizer *tap);
    void _handleSegmentedControl(int selectedSegmentIndex);
    void _showLegend();
    void _resizeScrollView(ui::ScrollView *scrollView);
    // Sizes the content to `size` (unscaled) at the current zoom.
    void setContentSize(QSizeF size);
    void resizeScrollViewSoon();

    VXLayoutGeneratorFactory m_layoutGeneratorFactory;
    QPointer<VUTesterLayoutsPlaygroundSettings> m_settings;
    std::shared_ptr<VUTesterLayoutInputManager> m_inputManager;
    QList<VUTesterLayoutGeneratorOutputView *> m_outputViews;
    ui::ScrollView *m_scrollView = nullptr;
    QWidget *m_contentView = nullptr;
    ui::SegmentedControl *m_segmentedControl = nullptr;
};
