#pragma once
// A scroll view: a window onto content larger than itself, moved by dragging (mouse, touch or
// wheel, through its pan recogniser), by flings that decelerate, and by code. Past an edge the
// content follows the finger with a rubber band and springs back; with paging it settles on whole
// pages. Content can be zoomed between a minimum and a maximum scale (pinch, Ctrl+wheel, code).
//
// Content is an ordinary widget tree under contentView(), positioned in content coordinates; the
// scroll view moves that container. Zooming resizes the delegate's zoom view to its unscaled size
// times the scale, and that view paints itself scaled (it is not transformed), so a picture
// stays sharp. Screens with many small items keep only the visible ones as widgets.
//
// Every animation (deceleration, springs, animated offsets and zooms) runs from one DisplayLink,
// so DisplayLink::ManualStepping steps it frame by frame.

#include "Geometry.h"

#include <QPointF>
#include <QPointer>
#include <QSizeF>
#include <QWidget>

#include <memory>

class QTimer;

namespace ui {

class DisplayLink;
class PanGestureRecognizer;
class PinchGestureRecognizer;
class ScrollView;

class ScrollViewDelegate {
public:
    virtual ~ScrollViewDelegate() = default;
    // The content offset changed (by any means, zooming included).
    virtual void didScroll(ScrollView *scrollView) {}
    virtual void didZoom(ScrollView *scrollView) {}
    virtual void willBeginDragging(ScrollView *scrollView) {}
    // The finger lifted; `willDecelerate` when the content keeps moving (a fling, a bounce back
    // or settling on a page), in which case didEndDecelerating follows once it stops.
    virtual void didEndDragging(ScrollView *scrollView, bool willDecelerate) {}
    virtual void didEndDecelerating(ScrollView *scrollView) {}
    // An animated setContentOffset or scrollRectToVisible reached its end.
    virtual void didEndScrollingAnimation(ScrollView *scrollView) {}
    // The view that zooming scales: a descendant of contentView(); null means no zooming.
    virtual QWidget *viewForZooming(ScrollView *scrollView) { return nullptr; }
    // A pinch, wheel zoom or zoom animation finished at `scale`.
    virtual void didEndZooming(ScrollView *scrollView, QWidget *view, double scale) {}
};

class ScrollView : public QWidget {
    Q_OBJECT
public:
    static constexpr double NormalDecelerationRate = 0.998;
    static constexpr double FastDecelerationRate = 0.99;

    explicit ScrollView(QWidget *parent = nullptr);
    ~ScrollView() override;

    ScrollViewDelegate *delegate() const { return m_delegate; }
    void setDelegate(ScrollViewDelegate *delegate) { m_delegate = delegate; }
    // The container of the content; its children are placed in content coordinates.
    QWidget *contentView() const { return m_content; }

    QSizeF contentSize() const { return m_contentSize; }
    // A smaller size pulls an offset that was in range back into the new range.
    void setContentSize(QSizeF size);
    QPointF contentOffset() const { return m_offset; }
    // Any offset is accepted, as when code scrolls past an edge; animated moves ease in and out.
    void setContentOffset(QPointF offset, bool animated = false);
    EdgeInsets contentInset() const { return m_inset; }
    void setContentInset(const EdgeInsets &inset);
    // The visible part of the content: origin at the content offset, size of the view.
    QRectF bounds() const { return QRectF(m_offset, QSizeF(size())); }
    QPointF minimumContentOffset() const;
    QPointF maximumContentOffset() const;
    // Scrolls the least distance that shows `rect` (content coordinates), or as much of it as fits.
    void scrollRectToVisible(const QRectF &rect, bool animated);

    bool isScrollEnabled() const;
    void setScrollEnabled(bool enabled);
    bool bounces() const { return m_bounces; }
    void setBounces(bool bounces) { m_bounces = bounces; }
    bool alwaysBounceHorizontal() const { return m_alwaysBounce[0]; }
    void setAlwaysBounceHorizontal(bool bounce) { m_alwaysBounce[0] = bounce; }
    bool alwaysBounceVertical() const { return m_alwaysBounce[1]; }
    void setAlwaysBounceVertical(bool bounce) { m_alwaysBounce[1] = bounce; }
    bool isPagingEnabled() const { return m_paging; }
    void setPagingEnabled(bool paging) { m_paging = paging; }
    // Share of velocity kept per millisecond of deceleration.
    double decelerationRate() const { return m_decelerationRate; }
    void setDecelerationRate(double rate) { m_decelerationRate = rate; }

    // A touch is down on the view.
    bool isTracking() const { return m_tracking; }
    bool isDragging() const { return m_dragging; }
    bool isDecelerating() const { return m_decelerating; }
    bool isZooming() const { return m_zooming; }
    bool isZoomBouncing() const { return m_zoomBouncing; }
    // Whether the touch now down stopped content that was moving; a tap that did so should
    // not also act as a tap.
    bool touchStoppedScrolling() const { return m_touchStoppedScrolling; }

    double zoomScale() const { return m_zoomScale; }
    // Clamped to the minimum and maximum; zooms about the centre of the view.
    void setZoomScale(double scale, bool animated = false);
    double minimumZoomScale() const { return m_minimumZoomScale; }
    void setMinimumZoomScale(double scale);
    double maximumZoomScale() const { return m_maximumZoomScale; }
    void setMaximumZoomScale(double scale);
    // A pinch may go past the limits and springs back on release.
    bool bouncesZoom() const { return m_bouncesZoom; }
    void setBouncesZoom(bool bounces) { m_bouncesZoom = bounces; }
    // Zooms so that `rect`, in the zoom view's unscaled coordinates, fills the view.
    void zoomToRect(const QRectF &rect, bool animated);

    bool showsHorizontalScrollIndicator() const { return m_showsIndicator[0]; }
    void setShowsHorizontalScrollIndicator(bool shows);
    bool showsVerticalScrollIndicator() const { return m_showsIndicator[1]; }
    void setShowsVerticalScrollIndicator(bool shows);
    // Shows the indicators of the scrollable directions for a moment.
    void flashScrollIndicators();
    QWidget *horizontalScrollIndicator() const;
    QWidget *verticalScrollIndicator() const;

    PanGestureRecognizer *panGestureRecognizer() const { return m_pan; }
    PinchGestureRecognizer *pinchGestureRecognizer() const { return m_pinch; }

    // Lets the content go as a drag released at `velocity` (points per second, in the
    // direction the offset moves) would: decelerating, bouncing or settling on a page.
    void flingWithVelocity(QPointF velocity);

Q_SIGNALS:
    // Emitted with the delegate's didScroll, for any number of observers.
    void scrolled();

protected:
    // The visible rectangle moved or changed size; subclasses lay out what it shows. Called
    // before the delegate hears of the change.
    virtual void boundsDidChange() {}
    // Hides the indicators once scrolling has stopped for a moment, or a flash is over.
    virtual void hideScrollIndicators();
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    struct Motion;
    class Indicator;

    void handlePan();
    void handlePinch();
    void onFrame(double timestamp);
    void startAnimating();
    void stopMotion();
    bool isScrollable(int axis) const;
    double rubberBandOffset(int axis, double raw) const;
    void applyOffset(QPointF offset);
    void clampOffsetIfIdle(bool wasInRange);
    bool offsetIsInRange() const;
    void startSettling(QPointF velocity);
    QPointF pageTarget(QPointF velocity) const;
    QWidget *zoomView();
    void applyZoom(double scale, QPointF anchor);
    void setZoomGeometry(double scale);
    // An eased move to `offset` and, when `zoom`, to `scale` as well.
    void startCurve(QPointF offset, double scale, bool zoom);
    void finishZoom();
    void updateIndicators();
    void showIndicators();

    ScrollViewDelegate *m_delegate = nullptr;
    QWidget *m_content;
    QSizeF m_contentSize;
    QPointF m_offset;
    EdgeInsets m_inset;
    bool m_bounces = true;
    bool m_alwaysBounce[2] = {false, false};
    bool m_paging = false;
    double m_decelerationRate = NormalDecelerationRate;

    bool m_tracking = false;
    bool m_dragging = false;
    bool m_decelerating = false;
    bool m_zooming = false;
    bool m_zoomBouncing = false;
    bool m_touchStoppedScrolling = false;
    // The offset the drag asks for before the rubber band; the page where the drag began.
    QPointF m_dragRawOffset;
    QPointF m_dragStartPage;
    QPointF m_lastTranslation;
    quint64 m_motionGeneration = 0;

    double m_zoomScale = 1;
    double m_minimumZoomScale = 1;
    double m_maximumZoomScale = 1;
    bool m_bouncesZoom = true;
    double m_pinchStartScale = 1;
    QPointer<QWidget> m_zoomView;
    QSizeF m_zoomBaseSize;

    bool m_showsIndicator[2] = {true, true};
    Indicator *m_indicators[2];
    QTimer *m_indicatorHideTimer;

    PanGestureRecognizer *m_pan;
    PinchGestureRecognizer *m_pinch;
    std::unique_ptr<Motion> m_motion;
    DisplayLink *m_link;
};

} // namespace ui
