#include "Window.h"

#include "ViewController.h"

#include <QShowEvent>
#include <QVBoxLayout>

namespace ui {

Window::Window(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

Window::~Window()
{
    delete m_root;
}

void Window::setRootViewController(ViewController *controller)
{
    delete m_root;
    m_root = controller;
    if (!controller)
        return;
    controller->setParent(nullptr);
    layout()->addWidget(controller->view());
    if (isVisible()) {
        controller->beginAppearanceTransition(true, false);
        controller->endAppearanceTransition();
    }
}

void Window::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_root && !event->spontaneous()) {
        m_root->beginAppearanceTransition(true, false);
        m_root->endAppearanceTransition();
    }
}

void Window::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (m_root && !event->spontaneous()) {
        m_root->beginAppearanceTransition(false, false);
        m_root->endAppearanceTransition();
    }
}

} // namespace ui
