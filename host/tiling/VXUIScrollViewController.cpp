#include "VXUIScrollViewController.h"

#include "ui/ScrollView.h"

#include <QEvent>

VXUIScrollViewController::VXUIScrollViewController(const QRectF &frame, QObject *parent)
    : QObject(parent), m_scrollView(new ui::ScrollView)
{
    m_scrollView->setGeometry(frame.toRect());
    m_scrollView->installEventFilter(this);
    connect(m_scrollView, &ui::ScrollView::scrolled, this, &VXUIScrollViewController::visibleRectChanged);
}

VXUIScrollViewController::~VXUIScrollViewController()
{
    if (m_scrollView && !m_scrollView->parent())
        delete m_scrollView.data();
}

void VXUIScrollViewController::addSubview(QWidget *view)
{
    view->setParent(m_scrollView->contentView());
}

QRectF VXUIScrollViewController::visibleRect() const
{
    return m_scrollView ? m_scrollView->bounds() : QRectF();
}

QSizeF VXUIScrollViewController::viewSize() const
{
    return m_scrollView ? QSizeF(m_scrollView->size()) : QSizeF();
}

void VXUIScrollViewController::setContentBounds(const QRectF &bounds)
{
    m_scrollView->setContentSize(QSizeF(bounds.right(), bounds.bottom()).expandedTo(QSizeF(0, 0)));
}

bool VXUIScrollViewController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_scrollView && event->type() == QEvent::Resize)
        Q_EMIT visibleRectChanged();
    return false;
}
