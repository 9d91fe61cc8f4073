#include "perf/vexo/VUTesterVexoBaselineViewController.h"

#include "perf/vexo/VUTesterCrossfadeNavigationTransition.h"
#include "perf/vexo/VUTesterGridMetrics.h"
#include "perf/vexo/VUTesterVistraKitSampleAssetGridViewController.h"

#include "layouts/VUTesterTilingControllerNullGridViewController.h"

#include "perf/gadgets/VXGadgetUIViewController.h"
#include "perf/grid/VXExtendedTraitCollection.h"
#include "perf/harness/VXPerfHarness.h"
#include "perf/harness/VXPerfTestDefinitions.h"
#include "ui/BackgroundColor.h"
#include "ui/BarButtonItem.h"
#include "ui/CollectionViewFlowLayout.h"
#include "ui/NavigationController.h"
#include "ui/ScrollView.h"
#include "ui/Settle.h"

#include <QEvent>

#include <cstdlib>

namespace {

const QString kCellIdentifier = QStringLiteral("Cell");

// A scroll view whose indicators show as soon as it has a parent and then stay: they are part of
// what a baseline draws.
class VUTesterVexoBaselineScrollView : public ui::ScrollView {
protected:
    bool event(QEvent *event) override
    {
        const bool handled = ui::ScrollView::event(event);
        if (event->type() == QEvent::ParentChange && parentWidget())
            flashScrollIndicators();
        return handled;
    }
    void hideScrollIndicators() override {}
};

// Runs `block` on the main thread after `delayMs`, if `guard` still exists by then; until then
// the screen is not settled.
void afterDelay(int delayMs, QObject *guard, std::function<void()> block)
{
    ui::Settle::after(std::chrono::milliseconds(delayMs), guard, std::move(block), QStringLiteral("a baseline's ready handler"));
}

} // namespace

VUTesterVexoBaselineViewController::VUTesterVexoBaselineViewController()
{
    setTitle(QStringLiteral("Vexo Baseline Environment"));
    navigationItem()->setLeftBarButtonItem(new ui::BarButtonItem(ui::BarButtonItem::SystemItem::Done, [this](ui::BarButtonItem *) { _handleDoneItem(); }));
    vx_enableExtendedTraitCollection(this);
}

void VUTesterVexoBaselineViewController::registerWithHarness()
{
    VXPerfHarness::sharedHarness()->setEnvironmentFactory([] { return new VUTesterVexoBaselineViewController; });
}

void VUTesterVexoBaselineViewController::viewDidLoad()
{
    ui::setBackgroundColor(view(), Qt::white);
}

void VUTesterVexoBaselineViewController::_handleDoneItem()
{
    // Presented inside a navigation controller: it is the container that goes.
    ui::ViewController *presented = this;
    while (presented && !presented->presentingViewController())
        presented = presented->parentViewController();
    if (presented)
        presented->dismissViewControllerAnimated(true);
}

void VUTesterVexoBaselineViewController::prepareForScrollTestWithName(const QString &, const QVariantMap &options, ScrollReadyHandler readyHandler)
{
    const QString content = options.value(VXPerfContentKey).toString();
    if (content == QLatin1String("NullScrollView")) {
        ui::ScrollView *scrollView = _makeNullScrollView();
        readyHandler(scrollView);
    } else if (content == QLatin1String("NullCollectionView")) {
        ui::CollectionView *collectionView = _makeNullCollectionView();
        afterDelay(NullCollectionViewDelayMs, collectionView, [collectionView, readyHandler] { readyHandler(collectionView); });
    } else if (content == QLatin1String("VistraKitSampleGrid")) {
        auto *grid = new VUTesterVistraKitSampleAssetGridViewController;
        _pushEnvironment(grid, [grid] { return grid->collectionView(); }, std::move(readyHandler));
    } else if (content == QLatin1String("NullTilingController")) {
        auto *tiling = new VUTesterTilingControllerNullGridViewController;
        _pushEnvironment(tiling, [tiling] { return tiling->scrollView(); }, std::move(readyHandler));
    } else if (content == QLatin1String("CurioStressCollection")) {
        auto *gadgets = new VXGadgetUIViewController(new VXGadgetCollectionViewLayout, new VXProtoCurioDataSourceManager);
        _pushEnvironment(gadgets, [gadgets] { return gadgets->collectionView(); }, std::move(readyHandler));
    } else {
        std::abort();
    }
}

void VUTesterVexoBaselineViewController::prepareForTransitionTestWithName(const QString &, const QVariantMap &options,
                                                                          TransitionReadyHandler readyHandler)
{
    ui::setBackgroundColor(view(), Qt::red);
    auto *destination = new ui::ViewController(this);
    ui::setBackgroundColor(destination->view(), Qt::green);
    const QString transition = options.value(VXPerfTransitionKey).toString();
    if (transition == QLatin1String("DefaultNavigation"))
        readyHandler(destination, nullptr);
    else if (transition == QLatin1String("CrossfadeNavigation"))
        readyHandler(destination, std::make_shared<VUTesterCrossfadeNavigationTransition>());
    else
        std::abort();
}

ui::ScrollView *VUTesterVexoBaselineViewController::_makeNullScrollView()
{
    QWidget *root = view();
    auto *scrollView = new VUTesterVexoBaselineScrollView;
    scrollView->setGeometry(root->rect());
    scrollView->setContentSize(QSizeF(root->width(), NullScrollViewContentHeight));
    ui::setBackgroundColor(scrollView, Qt::white);
    scrollView->setParent(root);
    scrollView->show();
    return scrollView;
}

ui::CollectionView *VUTesterVexoBaselineViewController::_makeNullCollectionView()
{
    QWidget *root = view();
    auto *layout = new ui::CollectionViewFlowLayout;
    VUTesterApplyGridLayout(layout, VUTesterGridLayoutForController(this, root->width()), NullCollectionViewExtraBottomInset);
    _itemsPerSection = NullCollectionViewItemsPerSection;
    auto *collectionView = new ui::CollectionView(layout, root);
    collectionView->setGeometry(root->rect());
    collectionView->setDataSource(this);
    collectionView->registerCellClass<ui::CollectionViewCell>(kCellIdentifier);
    ui::setBackgroundColor(collectionView, Qt::white);
    collectionView->setPrefetchingEnabled(true);
    collectionView->show();
    return collectionView;
}

ui::CollectionViewCell *VUTesterVexoBaselineViewController::cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath)
{
    ui::CollectionViewCell *cell = collectionView->dequeueReusableCellWithReuseIdentifier(kCellIdentifier, indexPath);
    // Each section runs once round the hue circle, from red at its first item.
    const double hue = double(indexPath.item()) / double(_itemsPerSection);
    ui::setBackgroundColor(cell->contentView(), QColor::fromHsvF(float(hue), 1.0f, 1.0f, 1.0f));
    return cell;
}

void VUTesterVexoBaselineViewController::_pushEnvironment(ui::ViewController *controller, std::function<ui::ScrollView *()> scrollView,
                                                          ScrollReadyHandler readyHandler)
{
    if (ui::NavigationController *navigation = navigationController())
        navigation->pushViewController(controller, true);
    else
        controller->setParent(this);
    afterDelay(PushedEnvironmentDelayMs, controller, [scrollView = std::move(scrollView), readyHandler = std::move(readyHandler)] {
        readyHandler(scrollView());
    });
}
