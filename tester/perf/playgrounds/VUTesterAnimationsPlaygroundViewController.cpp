#include "perf/playgrounds/VUTesterAnimationsPlaygroundViewController.h"

#include "perf/animation/VUView.h"
#include "ui/BarButtonItem.h"
#include "ui/TapGestureRecognizer.h"

#include <QEvent>
#include <QGraphicsScene>
#include <QGraphicsView>

VUTesterAnimationsPlaygroundViewController::VUTesterAnimationsPlaygroundViewController()
{
    navigationItem()->setRightBarButtonItem(new ui::BarButtonItem(QStringLiteral("Reset"), [this](ui::BarButtonItem *) {
        resetViewsToCenter(viewCenter());
    }));
}

QWidget *VUTesterAnimationsPlaygroundViewController::loadView()
{
    m_scene = new QGraphicsScene(this);
    m_canvas = new QGraphicsView(m_scene);
    m_canvas->setObjectName(QStringLiteral("canvas"));
    m_canvas->setFrameShape(QFrame::NoFrame);
    m_canvas->setBackgroundBrush(Qt::white);
    m_canvas->setRenderHint(QPainter::Antialiasing);
    m_canvas->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_canvas->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_canvas->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // The canvas never scrolls: scene and view coordinates are the same.
    m_canvas->setTransformationAnchor(QGraphicsView::NoAnchor);
    m_canvas->setSceneRect(0, 0, 1, 1);
    m_canvas->installEventFilter(this);
    m_tap = new ui::TapGestureRecognizer(m_canvas);
    connect(m_tap, &ui::GestureRecognizer::action, this, [this] {
        if (m_tap->state() == ui::GestureRecognizer::Recognized)
            animateViewsToCenter(m_tap->locationInView(m_canvas));
    });
    return m_canvas;
}

bool VUTesterAnimationsPlaygroundViewController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_canvas && event->type() == QEvent::Resize)
        m_canvas->setSceneRect(0, 0, m_canvas->width(), m_canvas->height());
    return ui::ViewController::eventFilter(watched, event);
}

QPointF VUTesterAnimationsPlaygroundViewController::viewCenter() const
{
    return m_canvas ? QRectF(m_canvas->rect()).center() : QPointF();
}

void VUTesterAnimationsPlaygroundViewController::addView(VUView *view)
{
    m_scene->addItem(view);
}
