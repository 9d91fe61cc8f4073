#pragma once
// A grid of a browsing session's assets: square cells in rows, section after section with a gap
// between, each showing its asset's image from the session's media provider, fitted whole into
// the cell. Only the cells on screen exist, so a data source of thousands of sections costs what
// one screenful costs. The grid follows the session's data source when a newer one replaces it.

#include "VUBrowsingSession.h"

#include "ui/CollectionView.h"

#include <QWidget>

namespace ui {
class CollectionViewFlowLayout;
}

class VUTilingView : public QWidget, private ui::CollectionViewDataSource, private ui::CollectionViewDelegate {
    Q_OBJECT
public:
    explicit VUTilingView(VUBrowsingSessionPtr browsingSession, QWidget *parent = nullptr);
    ~VUTilingView() override;

    const VUBrowsingSessionPtr &browsingSession() const { return m_session; }
    ui::CollectionView *collectionView() const { return m_collectionView; }
    // Cells across for the present width: about 90 points each, never fewer than 3.
    int numberOfColumns() const;
    static constexpr double kSpacing = 2;
    static constexpr double kSectionSpacing = 20;

Q_SIGNALS:
    // A tap on an item; the grid keeps no selection.
    void itemTapped(const ui::IndexPath &indexPath);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    qint64 numberOfSectionsInCollectionView(ui::CollectionView *collectionView) override;
    qint64 numberOfItemsInSection(ui::CollectionView *collectionView, qint64 section) override;
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath) override;
    void didSelectItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath) override;
    void didEndDisplayingCell(ui::CollectionView *collectionView, ui::CollectionViewCell *cell, const ui::IndexPath &indexPath) override;
    void updateItemSize();

    VUBrowsingSessionPtr m_session;
    ui::CollectionViewFlowLayout *m_layout;
    ui::CollectionView *m_collectionView;
};
