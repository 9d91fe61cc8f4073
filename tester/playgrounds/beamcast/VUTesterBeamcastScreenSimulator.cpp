#include "playgrounds/beamcast/VUTesterBeamcastScreenSimulator.h"

#include "playgrounds/beamcast/VUTesterBeamcastScreenSimulatorViewController.h"
#include "shell/VUTesterVersion.h"

#include "ui/PanGestureRecognizer.h"
#include "ui/TapGestureRecognizer.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace {

// The first window the application shows. Top-level widgets come in no particular order, while
// the platform windows are listed in the order they were made.
QWidget *firstWindow()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWindow *handle : QGuiApplication::topLevelWindows()) {
        if (!handle->isVisible())
            continue;
        for (QWidget *widget : widgets)
            if (widget->windowHandle() == handle && widget->windowType() == Qt::Window)
                return widget;
    }
    return nullptr;
}

} // namespace

VUTesterBeamcastScreenSimulator *VUTesterBeamcastScreenSimulator::sharedSimulator()
{
    static VUTesterBeamcastScreenSimulator *const simulator = new VUTesterBeamcastScreenSimulator;
    return simulator;
}

void VUTesterBeamcastScreenSimulator::_setViewController(VUTesterBeamcastScreenSimulatorViewController *viewController)
{
    m_viewController = viewController;
}

void VUTesterBeamcastScreenSimulator::showScreenWithContentSize(QSizeF contentSize,
                                                                std::shared_ptr<VHBeamcastControllerContentProvider> contentProvider)
{
    if (m_viewController)
        return;
    QWidget *window = firstWindow();
    if (!window) {
        qWarning("VUTesterBeamcastScreenSimulator: no window to show the screen over");
        return;
    }
    auto *viewController = new VUTesterBeamcastScreenSimulatorViewController(std::move(contentProvider), this);
    _setViewController(viewController);

    // A child keeps its distance from its parent's top-left corner (flexible right and bottom
    // margins), so the screen stays put when the window resizes.
    QWidget *screen = viewController->view();
    const double border = VUTesterBeamcastScreenBorderSize;
    screen->setGeometry(QRectF(50 - border, 50 - border, contentSize.width() + 2 * border, contentSize.height() + 2 * border).toRect());

    auto *doubleTap = new ui::TapGestureRecognizer(screen);
    doubleTap->setNumberOfTapsRequired(2);
    connect(doubleTap, &ui::GestureRecognizer::action, this, &VUTesterBeamcastScreenSimulator::_handleDoubleTapGestureRecognizer);
    auto *pan = new ui::PanGestureRecognizer(screen);
    connect(pan, &ui::GestureRecognizer::action, this, &VUTesterBeamcastScreenSimulator::_handlePanGestureRecognizer);

    viewController->beginAppearanceTransition(true, false);
    screen->setParent(window);
    screen->show();
    screen->raise();
    viewController->endAppearanceTransition();
}

void VUTesterBeamcastScreenSimulator::hideScreen()
{
    VUTesterBeamcastScreenSimulatorViewController *viewController = m_viewController;
    if (!viewController)
        return;
    viewController->beginAppearanceTransition(false, false);
    viewController->view()->hide();
    viewController->view()->setParent(nullptr);
    viewController->endAppearanceTransition();
    _setViewController(nullptr);
    // Later: this may run inside one of the screen's own recognisers.
    viewController->deleteLater();
}

void VUTesterBeamcastScreenSimulator::_handleDoubleTapGestureRecognizer(ui::GestureRecognizer *recognizer)
{
    if (recognizer->state() == ui::GestureRecognizer::State::Ended)
        hideScreen();
}

void VUTesterBeamcastScreenSimulator::_handlePanGestureRecognizer(ui::GestureRecognizer *recognizer)
{
    QWidget *screen = recognizer->view();
    switch (recognizer->state()) {
    case ui::GestureRecognizer::State::Began:
        _setDraggedScreenOriginalFrame(screen->geometry());
        break;
    case ui::GestureRecognizer::State::Changed: {
        // The translation in the window the screen floats over.
        const QPointF translation = static_cast<ui::PanGestureRecognizer *>(recognizer)->translation();
        screen->setGeometry(_draggedScreenOriginalFrame().translated(translation).toRect());
        break;
    }
    default:
        break;
    }
}
