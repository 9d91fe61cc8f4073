#pragma once
// The gadget collection's cards. Each kind of card knows how tall it is for a width, so the
// layout can place cards before any exists. Every card has a rounded background and a title; a
// text card adds a wrapped paragraph, a picture card a picture drawn for its seed (kept in a
// small cache, as decoded images are), a row card a collection of tiles of its own that scrolls
// sideways.

#include "VXGadget.h"

#include "ui/CollectionView.h"

class QLabel;

class VXGadgetCell : public ui::CollectionViewCell {
    Q_OBJECT
public:
    static const QString TextIdentifier;
    static const QString ImageIdentifier;
    static const QString NestedRowIdentifier;
    static QString reuseIdentifierForKind(VXGadget::Kind kind);
    static double heightForGadget(const VXGadget &gadget, double width);

    virtual void configure(const VXGadget &gadget);

protected:
    VXGadgetCell();
    void paintEvent(QPaintEvent *event) override;
    // Children are placed on each resize: a cell gets its frame after it has been configured.
    void resizeEvent(QResizeEvent *event) override;
    QLabel *m_title;
};

class VXGadgetTextCell : public VXGadgetCell {
    Q_OBJECT
public:
    VXGadgetTextCell();
    void configure(const VXGadget &gadget) override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QLabel *m_body;
};

class VXGadgetImageCell : public VXGadgetCell {
    Q_OBJECT
public:
    VXGadgetImageCell();
    void configure(const VXGadget &gadget) override;
    void prepareForReuse() override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    quint32 m_seed = 0;
    bool m_hasPicture = false;
};

class VXGadgetNestedRowCell : public VXGadgetCell, public ui::CollectionViewDataSource {
    Q_OBJECT
public:
    VXGadgetNestedRowCell();
    void configure(const VXGadget &gadget) override;
    ui::CollectionView *rowView() const { return m_row; }

    qint64 numberOfItemsInSection(ui::CollectionView *, qint64) override { return m_count; }
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath) override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    ui::CollectionView *m_row;
    quint32 m_seed = 0;
    int m_count = 0;
};
