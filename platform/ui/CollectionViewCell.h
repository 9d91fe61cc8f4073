#pragma once
// Views a collection view reuses: cells for items and supplementary views (section headers).
// A reused view is told prepareForReuse before the data source configures it again.

#include <QWidget>

namespace ui {

struct CollectionViewLayoutAttributes;

class CollectionReusableView : public QWidget {
    Q_OBJECT
public:
    explicit CollectionReusableView(QWidget *parent = nullptr);
    // The identifier this view was dequeued with.
    QString reuseIdentifier() const { return m_reuseIdentifier; }
    virtual void prepareForReuse() {}
    // Places the view; subclasses that read more of the attributes call this first.
    virtual void applyLayoutAttributes(const CollectionViewLayoutAttributes &attributes);

private:
    friend class CollectionView;
    QString m_reuseIdentifier;
};

class CollectionViewCell : public CollectionReusableView {
    Q_OBJECT
public:
    explicit CollectionViewCell(QWidget *parent = nullptr);
    // Where the cell's content goes; it always fills the cell.
    QWidget *contentView() const { return m_contentView; }
    bool isSelected() const { return m_selected; }
    virtual void setSelected(bool selected) { m_selected = selected; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *m_contentView;
    bool m_selected = false;
};

} // namespace ui
