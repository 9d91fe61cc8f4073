#include "VUBeamcastRootViewController.h"

#include "ui/Autoresizing.h"

#include <QWidget>

void VUBeamcastRootViewController::setChildViewController(ui::ViewController *child, bool animated)
{
    if (child == m_child)
        return;
    if (m_child) {
        ui::ViewController *old = m_child;
        if (old->isViewLoaded())
            old->view()->hide();
        old->setParentViewController(nullptr);
        old->deleteLater();
    }
    m_child = child;
    if (child) {
        child->setParent(this);
        child->setParentViewController(this);
    }
    if (isViewLoaded())
        installChild();
}

QWidget *VUBeamcastRootViewController::loadView()
{
    auto *view = new QWidget;
    view->setObjectName(QStringLiteral("beamcastRoot"));
    QPalette palette = view->palette();
    palette.setColor(QPalette::Window, Qt::black);
    view->setPalette(palette);
    view->setAutoFillBackground(true);
    return view;
}

void VUBeamcastRootViewController::installChild()
{
    if (!m_child)
        return;
    QWidget *content = m_child->view();
    content->setParent(view());
    content->setGeometry(view()->rect());
    ui::setAutoresizingMask(content, ui::Autoresizing::FlexibleWidth | ui::Autoresizing::FlexibleHeight);
    content->show();
}
