#pragma once
// The performance harness's baseline environments: scenes that scroll or transition just as the
// host's real screens do but cost next to nothing, or the host's real components fed by test
// doubles, so a measurement of a real screen can be set against its baseline.
//
// A scroll test's options name the scene in "content":
//   "NullScrollView"        a bare scroll view, 10,000 points tall; ready at once
//   "NullCollectionView"    a stock flow-layout grid of 365 sections of 183 coloured cells, in
//                           the host grid's metrics; ready after 0.2 s
//   "VistraKitSampleGrid"   the photo library's grid, pushed; ready after 2 s
//   "NullTilingController"  the null tiling grid, pushed; ready after 2 s
//   "CurioStressCollection" the host's gadget collection, pushed; ready after 2 s
// A transition test's options name the transition in "transition": "DefaultNavigation" (the
// container's own) or "CrossfadeNavigation". The test name is not consulted. A missing or unknown
// name ends the process at once: a misnamed baseline must stop a harness run rather than measure
// nothing.
//
// A delayed ready handler runs only if the controller, and the scene it hands over, still exist.

#include "shell/VUTesterExport.h"

#include "perf/harness/VXPerfTestEnvironment.h"
#include "ui/CollectionView.h"
#include "ui/ViewController.h"

class VUTESTER_EXPORT VUTesterVexoBaselineViewController : public ui::ViewController,
                                                           public VXPerfTestEnvironment,
                                                           public ui::CollectionViewDataSource {
    Q_OBJECT
public:
    static constexpr int NullCollectionViewDelayMs = 200;
    static constexpr int PushedEnvironmentDelayMs = 2000;
    static constexpr qint64 NullCollectionViewSections = 365;
    static constexpr qint64 NullCollectionViewItemsPerSection = 183;
    // Deliberately below the grid's own section inset.
    static constexpr double NullCollectionViewExtraBottomInset = 50;
    static constexpr double NullScrollViewContentHeight = 10000;

    VUTesterVexoBaselineViewController();

    // Makes the harness's test environments baseline controllers.
    static void registerWithHarness();

    ui::ViewController *environmentViewController() override { return this; }
    void prepareForScrollTestWithName(const QString &name, const QVariantMap &options, ScrollReadyHandler readyHandler) override;
    void prepareForTransitionTestWithName(const QString &name, const QVariantMap &options, TransitionReadyHandler readyHandler) override;

    // 0 until the null collection view is prepared.
    qint64 itemsPerSection() const { return _itemsPerSection; }

    qint64 numberOfSectionsInCollectionView(ui::CollectionView *) override { return NullCollectionViewSections; }
    qint64 numberOfItemsInSection(ui::CollectionView *, qint64) override { return _itemsPerSection; }
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath) override;

protected:
    void viewDidLoad() override;

private:
    ui::ScrollView *_makeNullScrollView();
    ui::CollectionView *_makeNullCollectionView();
    void _pushEnvironment(ui::ViewController *controller, std::function<ui::ScrollView *()> scrollView, ScrollReadyHandler readyHandler);
    void _handleDoneItem();

    qint64 _itemsPerSection = 0;
};
