#pragma once
// Exercises the Beamcast path on a machine with no external screen: what the host would send
// there shows as a small bordered screen floating over the application's first window, at
// (49, 49), which can be dragged anywhere (also off the window) and is hidden by a double tap.
// Showing it while it shows changes nothing.

#include "shell/VUTesterExport.h"

#include <beamcast/VHBeamcastControllerContentProvider.h>

#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QSizeF>

#include <memory>

class VUTesterBeamcastScreenSimulatorViewController;
namespace ui {
class GestureRecognizer;
}

class VUTESTER_EXPORT VUTesterBeamcastScreenSimulator : public QObject {
    Q_OBJECT
public:
    static VUTesterBeamcastScreenSimulator *sharedSimulator();

    // `contentSize` in points: the screen is that plus its border on every side.
    void showScreenWithContentSize(QSizeF contentSize, std::shared_ptr<VHBeamcastControllerContentProvider> contentProvider);
    void hideScreen();
    bool isScreenVisible() const { return !m_viewController.isNull(); }

    VUTesterBeamcastScreenSimulatorViewController *_viewController() const { return m_viewController; }
    void _setViewController(VUTesterBeamcastScreenSimulatorViewController *viewController);
    QRectF _draggedScreenOriginalFrame() const { return m_draggedScreenOriginalFrame; }
    void _setDraggedScreenOriginalFrame(const QRectF &frame) { m_draggedScreenOriginalFrame = frame; }

private:
    VUTesterBeamcastScreenSimulator() = default;
    void _handleDoubleTapGestureRecognizer(ui::GestureRecognizer *recognizer);
    void _handlePanGestureRecognizer(ui::GestureRecognizer *recognizer);

    QPointer<VUTesterBeamcastScreenSimulatorViewController> m_viewController;
    QRectF m_draggedScreenOriginalFrame;
};
