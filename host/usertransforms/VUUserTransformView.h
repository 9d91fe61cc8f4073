#pragma once
// A picture the user turns, scales and moves: pinch, rotate and pan (one or two fingers, all at
// once) about the point between the fingers, within limits (VUUserTransformLimits); a double tap
// zooms in on the tapped point, or back out when zoomed. With a mouse, Ctrl and the wheel zoom
// about the pointer and Ctrl, Shift and the wheel turn.
//
// The user transform is about the view's centre: it maps a point of the picture, fitted whole
// in the view and centred on its middle, to where it shows, relative to the middle.

#include "VUUserTransformLimits.h"

#include <graphics/Image.h>
#include <perf/animation/VUSpringDriver.h>

#include <QImage>
#include <QPointer>
#include <QTransform>
#include <QWidget>

namespace ui {
class PanGestureRecognizer;
class PinchGestureRecognizer;
class RotationGestureRecognizer;
class TapGestureRecognizer;
class GestureRecognizer;
}

class VUUserTransformView : public QWidget {
    Q_OBJECT
public:
    static constexpr double kDefaultDoubleTapScale = 2.5;
    // The double tap's zoom, as long as a spring.
    static constexpr double kZoomDuration = 0.35;

    explicit VUUserTransformView(QWidget *parent = nullptr);
    ~VUUserTransformView() override;

    const graphics::ImagePtr &image() const { return m_image; }
    void setImage(graphics::ImagePtr image);
    const VUUserTransformLimits &limits() const { return m_limits; }
    // Applies to the transform at once.
    void setLimits(const VUUserTransformLimits &limits);
    double doubleTapScale() const { return m_doubleTapScale; }
    void setDoubleTapScale(double scale) { m_doubleTapScale = scale; }

    QTransform userTransform() const { return m_transform; }
    VUTransformComponents userTransformComponents() const { return VUDecomposeTransform(m_transform); }
    // Within the limits; stops a zoom under way.
    void setUserTransform(const QTransform &transform);
    // Zooms as a double tap at `location` (in the view) does: in by doubleTapScale() there, or
    // back to no transform when zoomed in at all.
    void zoomAtLocation(QPointF location);
    // The picture's size as fitted in the view, before the user transform.
    QSizeF fittedPictureSize() const;
    bool isZooming() const { return m_zoom && m_zoom->isRunning(); }

    ui::PanGestureRecognizer *panGestureRecognizer() const { return m_pan; }
    ui::PinchGestureRecognizer *pinchGestureRecognizer() const { return m_pinch; }
    ui::RotationGestureRecognizer *rotationGestureRecognizer() const { return m_rotation; }
    ui::TapGestureRecognizer *doubleTapGestureRecognizer() const { return m_doubleTap; }

Q_SIGNALS:
    void userTransformChanged(const QTransform &transform);

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void _gestureChanged(ui::GestureRecognizer *recognizer);
    // The pinch's scale and the rotation's turn since touch-down; none while they are not active.
    double _gestureScale() const;
    double _gestureTurn() const;
    void _apply(const QTransform &transform);
    // `transform` applied about `location` (in the view): that point stays put.
    QTransform _about(QPointF location, const QTransform &transform) const;
    QPointF _fromCentre(QPointF location) const;

    graphics::ImagePtr m_image;
    QImage m_upright;
    VUUserTransformLimits m_limits;
    double m_doubleTapScale = kDefaultDoubleTapScale;
    QTransform m_transform;
    // Where the gestures under way started: the transform, the point between the fingers (from
    // the middle), the pinch's and rotation's values, which gestures were active and how many
    // fingers were down.
    bool m_tracking = false;
    int m_active = 0;
    QTransform m_start;
    QPointF m_anchor;
    double m_scaleBase = 1;
    double m_turnBase = 0;
    int m_touches = 0;
    ui::PanGestureRecognizer *m_pan;
    ui::PinchGestureRecognizer *m_pinch;
    ui::RotationGestureRecognizer *m_rotation;
    ui::TapGestureRecognizer *m_doubleTap;
    QPointer<VUSpringDriver> m_zoom;
};
