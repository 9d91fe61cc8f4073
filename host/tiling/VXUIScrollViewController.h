#pragma once
// Puts a ui::ScrollView under a tiling controller: the visible rectangle, the content bounds,
// subviews in content coordinates, and a signal whenever what is visible changes (a scroll or
// a new size).

#include "ui/ScrollView.h"

#include <QObject>
#include <QPointer>
#include <QRectF>

class VXUIScrollViewController : public QObject {
    Q_OBJECT
public:
    // Makes the scroll view with `frame`; whoever adds it to a parent owns it from then on.
    explicit VXUIScrollViewController(const QRectF &frame, QObject *parent = nullptr);
    ~VXUIScrollViewController() override;

    ui::ScrollView *scrollView() const { return m_scrollView; }
    // Adds `view` to the scrolling content; its geometry is in content coordinates.
    void addSubview(QWidget *view);
    // The part of the content on screen.
    QRectF visibleRect() const;
    QSizeF viewSize() const;
    // The content spans from the origin to the bottom-right corner of `bounds`.
    void setContentBounds(const QRectF &bounds);

Q_SIGNALS:
    void visibleRectChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<ui::ScrollView> m_scrollView;
};
