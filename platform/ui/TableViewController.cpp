#include "TableViewController.h"

#include "BackgroundColor.h"
#include "CollectionViewFlowLayout.h"

#include <QHBoxLayout>
#include <QLabel>

namespace ui {

namespace {

const QString kHeaderIdentifier = QStringLiteral("TableViewSectionHeader");

class SectionHeaderView : public CollectionReusableView {
public:
    SectionHeaderView()
    {
        setAutoFillBackground(true);
        setBackgroundRole(QPalette::AlternateBase);
        auto *row = new QHBoxLayout(this);
        row->setContentsMargins(16, 0, 16, 0);
        m_label = new QLabel;
        QFont font = m_label->font();
        font.setBold(true);
        m_label->setFont(font);
        row->addWidget(m_label);
    }
    void setTitle(const QString &title) { m_label->setText(title); }

private:
    QLabel *m_label;
};

} // namespace

TableViewController::TableViewController(TableViewStyle style, QObject *parent) : ViewController(parent), m_style(style)
{
}

TableViewController::~TableViewController()
{
    // The view may outlive this controller for a moment; it must not call back into it.
    if (m_tableView) {
        m_tableView->setDataSource(nullptr);
        m_tableView->setDelegate(nullptr);
    }
}

QWidget *TableViewController::loadView()
{
    m_layout = new CollectionViewFlowLayout;
    // Rows are separated by a hairline of the view's background.
    m_layout->setMinimumLineSpacing(1);
    m_layout->setMinimumInteritemSpacing(0);
    m_tableView = new CollectionView(m_layout);
    setBackgroundColor(m_tableView, m_tableView->palette().color(QPalette::Midlight));
    m_tableView->registerSupplementaryViewFactory(CollectionView::ElementKindSectionHeader, kHeaderIdentifier,
                                                  [] { return new SectionHeaderView; });
    m_tableView->setDataSource(this);
    m_tableView->setDelegate(this);
    updateHeaders();
    return m_tableView;
}

void TableViewController::reloadData()
{
    if (!m_tableView)
        return;
    updateHeaders();
    m_tableView->reloadData();
}

void TableViewController::updateHeaders()
{
    // The flow layout gives every section the same header height: none unless one has a title.
    bool titled = false;
    for (qint64 section = 0, count = numberOfSectionsInTableView(); section < count && !titled; ++section)
        titled = !titleForHeaderInSection(section).isEmpty();
    m_layout->setHeaderReferenceSize(QSizeF(0, titled ? kSectionHeaderHeight : 0));
}

qint64 TableViewController::numberOfSectionsInCollectionView(CollectionView *)
{
    return numberOfSectionsInTableView();
}

qint64 TableViewController::numberOfItemsInSection(CollectionView *, qint64 section)
{
    return numberOfRowsInSection(section);
}

CollectionViewCell *TableViewController::cellForItemAtIndexPath(CollectionView *, const IndexPath &indexPath)
{
    CollectionViewCell *cell = cellForRowAtIndexPath(indexPath);
    cell->setAutoFillBackground(true);
    cell->setBackgroundRole(QPalette::Base);
    return cell;
}

CollectionReusableView *TableViewController::viewForSupplementaryElementOfKind(CollectionView *collectionView, const QString &kind,
                                                                               const IndexPath &indexPath)
{
    if (kind != CollectionView::ElementKindSectionHeader)
        return nullptr;
    auto *header = static_cast<SectionHeaderView *>(collectionView->dequeueReusableSupplementaryViewOfKind(kind, kHeaderIdentifier, indexPath));
    header->setTitle(titleForHeaderInSection(indexPath.section()));
    return header;
}

std::optional<QSizeF> TableViewController::sizeForItemAtIndexPath(CollectionView *collectionView, CollectionViewLayout *,
                                                                  const IndexPath &indexPath)
{
    return QSizeF(collectionView->bounds().width(), heightForRowAtIndexPath(indexPath));
}

void TableViewController::didSelectItemAtIndexPath(CollectionView *collectionView, const IndexPath &indexPath)
{
    collectionView->deselectItemAtIndexPath(indexPath);
    didSelectRowAtIndexPath(indexPath);
}

QList<TappableRow> TableViewController::tappableRows()
{
    QList<TappableRow> rows;
    for (qint64 section = 0, sections = numberOfSectionsInTableView(); section < sections; ++section) {
        const QString header = titleForHeaderInSection(section);
        for (qint64 row = 0, count = numberOfRowsInSection(section); row < count; ++row) {
            const IndexPath indexPath{section, row};
            const QString title = tappableTitleForRowAtIndexPath(indexPath);
            if (!title.isEmpty())
                rows.append({header, title, [this, indexPath] { didSelectRowAtIndexPath(indexPath); }});
        }
    }
    return rows;
}

} // namespace ui
