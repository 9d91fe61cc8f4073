#include "VXGadgetUIViewController.h"

#include "VXGadgetCells.h"

#include "ui/Autoresizing.h"
#include "ui/BackgroundColor.h"

#include <QWidget>

VXGadgetUIViewController::VXGadgetUIViewController(VXGadgetCollectionViewLayout *layout, VXProtoCurioDataSourceManager *dataSourceManager)
    : m_pendingLayout(layout), m_layout(layout), m_dataSourceManager(dataSourceManager)
{
    setTitle(QStringLiteral("Gadgets"));
    m_layout->setSizing(this);
}

VXGadgetUIViewController::~VXGadgetUIViewController()
{
    // The collection view (with the layout) goes with the view; it must not ask this for sizes then.
    if (m_collectionView)
        m_collectionView->setDataSource(nullptr);
    m_layout->setSizing(nullptr);
}

ui::CollectionView *VXGadgetUIViewController::collectionView()
{
    view();
    return m_collectionView;
}

void VXGadgetUIViewController::viewDidLoad()
{
    QWidget *root = view();
    ui::setBackgroundColor(root, Qt::white);
    m_collectionView = new ui::CollectionView(m_pendingLayout.release(), root);
    m_collectionView->setGeometry(root->rect());
    ui::setAutoresizingMask(m_collectionView, ui::Autoresizing::FlexibleWidth | ui::Autoresizing::FlexibleHeight);
    ui::setBackgroundColor(m_collectionView, Qt::white);
    m_collectionView->registerCellClass<VXGadgetTextCell>(VXGadgetCell::TextIdentifier);
    m_collectionView->registerCellClass<VXGadgetImageCell>(VXGadgetCell::ImageIdentifier);
    m_collectionView->registerCellClass<VXGadgetNestedRowCell>(VXGadgetCell::NestedRowIdentifier);
    m_collectionView->setDataSource(this);
}

qint64 VXGadgetUIViewController::numberOfSectionsInCollectionView(ui::CollectionView *)
{
    return m_dataSourceManager->numberOfSections();
}

qint64 VXGadgetUIViewController::numberOfItemsInSection(ui::CollectionView *, qint64 section)
{
    return m_dataSourceManager->numberOfGadgetsInSection(int(section));
}

ui::CollectionViewCell *VXGadgetUIViewController::cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath)
{
    const VXGadget &gadget = m_dataSourceManager->gadgetAtIndexPath(indexPath);
    auto *cell = static_cast<VXGadgetCell *>(collectionView->dequeueReusableCellWithReuseIdentifier(VXGadgetCell::reuseIdentifierForKind(gadget.kind), indexPath));
    cell->configure(gadget);
    return cell;
}

double VXGadgetUIViewController::heightForGadgetAtIndexPath(const ui::IndexPath &indexPath, double width)
{
    return VXGadgetCell::heightForGadget(m_dataSourceManager->gadgetAtIndexPath(indexPath), width);
}
