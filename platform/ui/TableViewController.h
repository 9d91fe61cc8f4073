#pragma once
// A table: one column of rows in sections, each section optionally headed by a title, scrolling
// vertically, built on the collection view so that only the rows on screen have cells and cells
// are reused. Subclasses answer the table's questions; tapping a row selects it and tells
// didSelectRowAtIndexPath, then the selection goes. Row heights are the subclass's, so a row can
// be as tall as its content.

#include "CollectionView.h"
#include "TappableRows.h"
#include "ViewController.h"

#include <QPointer>

namespace ui {

class CollectionViewFlowLayout;

enum class TableViewStyle { Plain, Grouped };

class TableViewController : public ViewController, public TappableRows, protected CollectionViewDataSource, protected CollectionViewDelegate {
    Q_OBJECT
public:
    static constexpr double kDefaultRowHeight = 44;
    static constexpr double kSectionHeaderHeight = 28;

    explicit TableViewController(TableViewStyle style = TableViewStyle::Plain, QObject *parent = nullptr);
    ~TableViewController() override;

    TableViewStyle style() const { return m_style; }
    // Null until the view is loaded.
    CollectionView *tableView() const { return m_tableView.data(); }
    // Asks every question again.
    void reloadData();

    // Rows that have a title to tap by (tappableTitleForRowAtIndexPath), in screen order.
    QList<TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

    virtual qint64 numberOfSectionsInTableView() { return 1; }
    virtual qint64 numberOfRowsInSection(qint64 section) = 0;
    // Empty: the section has no header.
    virtual QString titleForHeaderInSection(qint64 section) { return {}; }
    // A cell from tableView()->dequeueReusableCellWithReuseIdentifier, configured for the row.
    virtual CollectionViewCell *cellForRowAtIndexPath(const IndexPath &indexPath) = 0;
    virtual double heightForRowAtIndexPath(const IndexPath &indexPath) { return kDefaultRowHeight; }
    virtual void didSelectRowAtIndexPath(const IndexPath &indexPath) {}
    // The title a script taps the row by; empty leaves the row out of tappableRows.
    virtual QString tappableTitleForRowAtIndexPath(const IndexPath &indexPath) { return {}; }

    // Collection view plumbing.
    qint64 numberOfSectionsInCollectionView(CollectionView *collectionView) override;
    qint64 numberOfItemsInSection(CollectionView *collectionView, qint64 section) override;
    CollectionViewCell *cellForItemAtIndexPath(CollectionView *collectionView, const IndexPath &indexPath) override;
    CollectionReusableView *viewForSupplementaryElementOfKind(CollectionView *collectionView, const QString &kind,
                                                              const IndexPath &indexPath) override;
    std::optional<QSizeF> sizeForItemAtIndexPath(CollectionView *collectionView, CollectionViewLayout *layout,
                                                 const IndexPath &indexPath) override;
    void didSelectItemAtIndexPath(CollectionView *collectionView, const IndexPath &indexPath) override;

private:
    void updateHeaders();

    TableViewStyle m_style;
    CollectionViewFlowLayout *m_layout = nullptr;
    QPointer<CollectionView> m_tableView;
};

} // namespace ui
