#include "Autoresizing.h"

#include <QEvent>
#include <QResizeEvent>
#include <QWidget>

namespace ui {

namespace {

// Lives on the view; watches the parent it had when the mask was set.
class AutoresizingFollower : public QObject {
public:
    AutoresizingFollower(QWidget *view, AutoresizingMask mask) : QObject(view), m_view(view), m_mask(mask)
    {
        setObjectName(QStringLiteral("ui.autoresizing"));
        if (QWidget *parent = view->parentWidget()) {
            m_parentSize = parent->size();
            parent->installEventFilter(this);
        }
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize && watched == m_view->parentWidget()) {
            // Against the size last seen, not the event's old size: a widget resized before it was
            // first shown gets one event with no old size.
            const QSize size = static_cast<QResizeEvent *>(event)->size();
            const QSize delta = size - m_parentSize;
            m_parentSize = size;
            m_view->resize(m_view->width() + (m_mask & Autoresizing::FlexibleWidth ? delta.width() : 0),
                           m_view->height() + (m_mask & Autoresizing::FlexibleHeight ? delta.height() : 0));
        }
        return false;
    }

private:
    QWidget *m_view;
    AutoresizingMask m_mask;
    QSize m_parentSize;
};

} // namespace

void setAutoresizingMask(QWidget *view, AutoresizingMask mask)
{
    delete view->findChild<AutoresizingFollower *>(QStringLiteral("ui.autoresizing"), Qt::FindDirectChildrenOnly);
    if (mask != Autoresizing::None)
        new AutoresizingFollower(view, mask);
}

} // namespace ui
