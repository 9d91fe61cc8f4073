#pragma once
// The one-up browser: one asset at a time, filling the screen, in the order of the session's data
// source across all its sections. Swiping moves to the next or previous asset, page by page; a
// pinch or a double tap zooms into the asset shown, and a double tap on a zoomed asset zooms back
// out. The title says where the asset stands ("12 of 380").

#include "VUBrowsingSession.h"

#include "ui/CollectionView.h"
#include "ui/ViewController.h"

#include <QPointer>

#include <vector>

namespace ui {
class CollectionViewFlowLayout;
}

class VUOneUpViewController : public ui::ViewController, private ui::CollectionViewDataSource, private ui::CollectionViewDelegate {
    Q_OBJECT
public:
    static constexpr double kMaximumZoomScale = 4;
    // How far a double tap zooms in.
    static constexpr double kDoubleTapZoomScale = 2.5;

    VUOneUpViewController(VUBrowsingSessionPtr browsingSession, const ui::IndexPath &initialIndexPath, QObject *parent = nullptr);
    ~VUOneUpViewController() override;

    const VUBrowsingSessionPtr &browsingSession() const { return m_session; }
    // The asset shown, or the one to be shown first before the view exists.
    const ui::IndexPath &currentIndexPath() const { return m_current; }
    void showItemAtIndexPath(const ui::IndexPath &indexPath, bool animated);
    // Null until the view is loaded.
    ui::CollectionView *collectionView() const { return m_collectionView.data(); }
    // The zoomable view of the page on screen, or null.
    ui::ScrollView *currentPageScrollView() const;

protected:
    QWidget *loadView() override;

private:
    qint64 numberOfSectionsInCollectionView(ui::CollectionView *collectionView) override;
    qint64 numberOfItemsInSection(ui::CollectionView *collectionView, qint64 section) override;
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath) override;
    void didEndDisplayingCell(ui::CollectionView *collectionView, ui::CollectionViewCell *cell, const ui::IndexPath &indexPath) override;
    void didScroll(ui::ScrollView *scrollView) override;

    void reloadCounts();
    void pagesResized();
    void setCurrentIndexPath(const ui::IndexPath &indexPath);
    qint64 pageOfIndexPath(const ui::IndexPath &indexPath) const;
    ui::IndexPath indexPathOfPage(qint64 page) const;

    VUBrowsingSessionPtr m_session;
    ui::IndexPath m_current;
    VUAssetReferencePtr m_currentReference;
    // The page number of each section's first asset, and the total after the last.
    std::vector<qint64> m_sectionStarts;
    ui::CollectionViewFlowLayout *m_layout = nullptr;
    // The view may go before its controller.
    QPointer<ui::CollectionView> m_collectionView;
};
