#pragma once
// The host's gadget screen: a collection of mixed cards (text, pictures, rows that scroll
// sideways) from a prototype data source, laid out by a VXGadgetCollectionViewLayout. A stress
// case for scrolling: cards of many heights and kinds, reused as they scroll.

#include "VXGadgetCollectionViewLayout.h"
#include "VXProtoCurioDataSourceManager.h"

#include "ui/CollectionView.h"
#include "ui/ViewController.h"

#include <memory>

class VXGadgetUIViewController : public ui::ViewController, public ui::CollectionViewDataSource, public VXGadgetLayoutSizing {
    Q_OBJECT
public:
    // Takes both; the layout goes to the collection view.
    VXGadgetUIViewController(VXGadgetCollectionViewLayout *layout, VXProtoCurioDataSourceManager *dataSourceManager);
    ~VXGadgetUIViewController() override;

    // Made with the view.
    ui::CollectionView *collectionView();
    VXProtoCurioDataSourceManager *dataSourceManager() const { return m_dataSourceManager.get(); }

    qint64 numberOfSectionsInCollectionView(ui::CollectionView *) override;
    qint64 numberOfItemsInSection(ui::CollectionView *, qint64 section) override;
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath) override;
    double heightForGadgetAtIndexPath(const ui::IndexPath &indexPath, double width) override;

protected:
    void viewDidLoad() override;

private:
    // Held until the collection view takes it.
    std::unique_ptr<VXGadgetCollectionViewLayout> m_pendingLayout;
    VXGadgetCollectionViewLayout *m_layout;
    std::unique_ptr<VXProtoCurioDataSourceManager> m_dataSourceManager;
    ui::CollectionView *m_collectionView = nullptr;
};
