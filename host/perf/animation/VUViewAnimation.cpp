#include "VUViewAnimation.h"

#include "VUTransforms.h"

#include "ui/DisplayLink.h"

#include <QGraphicsScene>
#include <QGraphicsView>

namespace {

using Component = VUViewAnimation::Component;

std::array<double, VUViewAnimation::ComponentCount> componentsOf(const VUViewGeometry &geometry)
{
    const VUTransformComponents t = VUDecomposeTransform(geometry.transform);
    return {geometry.center.x(), geometry.center.y(), geometry.bounds.width(), geometry.bounds.height(), t.translation.x(),
            t.translation.y(), t.xScale, t.yScale, t.rotation, geometry.cornerRadius};
}

} // namespace

VUViewAnimation *VUViewAnimation::start(VUView *view, const VUViewGeometry &target, const VUSpring &spring, double delay,
                                        const VelocityRule &velocity, VUViewAnimationOptions options, Completion completion)
{
    if (VUViewAnimation *running = view->animation()) {
        if (!(options & VUViewAnimationOption::BeginFromCurrentState))
            view->setGeometry(running->target());
        running->cancel();
    }
    return new VUViewAnimation(view, view->geometry(), target, spring, delay, velocity, std::move(completion));
}

VUViewAnimation::VUViewAnimation(VUView *view, const VUViewGeometry &from, const VUViewGeometry &target, const VUSpring &spring,
                                 double delay, const VelocityRule &velocity, Completion completion)
    : QObject(view), m_view(view), m_target(target), m_spring(spring), m_delay(delay), m_startTime(ui::DisplayLink::currentTime()),
      m_completion(std::move(completion))
{
    const auto start = componentsOf(from);
    auto end = componentsOf(target);
    // The short way round, whatever angles the two transforms were written with.
    end[Rotation] = start[Rotation] + VUAngleDifference(start[Rotation], end[Rotation]);
    for (int c = 0; c < ComponentCount; ++c)
        m_tracks[c] = {start[c], end[c], velocity ? velocity(Component(c), start[c], end[c]) : 0};
    view->m_animation = this;
    m_link = new ui::DisplayLink([this](ui::DisplayLink &link) { step(link.timestamp()); }, this);
    m_link->schedule(view->scene() && !view->scene()->views().isEmpty() ? view->scene()->views().first() : nullptr);
}

void VUViewAnimation::step(double time)
{
    const double t = time - m_startTime - m_delay;
    if (t < 0 || !m_view)
        return;
    if (t >= m_spring.duration()) {
        m_view->setGeometry(m_target);
        end(true);
        return;
    }
    std::array<double, ComponentCount> value;
    for (int c = 0; c < ComponentCount; ++c)
        value[c] = m_spring.value(m_tracks[c].from, m_tracks[c].to, m_tracks[c].velocity, t);
    VUViewGeometry geometry;
    geometry.center = QPointF(value[CenterX], value[CenterY]);
    geometry.bounds = QRectF(m_target.bounds.topLeft(), QSizeF(value[Width], value[Height]));
    geometry.transform = VUComposeTransform(QPointF(value[TranslationX], value[TranslationY]), value[XScale], value[YScale], value[Rotation]);
    geometry.cornerRadius = value[CornerRadius];
    m_view->setGeometry(geometry);
}

void VUViewAnimation::cancel()
{
    end(false);
}

void VUViewAnimation::end(bool finished)
{
    m_link->invalidate();
    m_pending.end();
    if (m_view && m_view->m_animation == this)
        m_view->m_animation = nullptr;
    // Gone at the next turn of the event loop: this may run inside the frame timer's own call.
    deleteLater();
    // Last: a completion may start the next animation, or drop the view.
    if (Completion completion = std::exchange(m_completion, nullptr))
        completion(finished);
}

void VUAnimateViewWithSpring(VUView *view, const VUViewGeometry &target, double duration, double delay, double dampingRatio,
                             double initialSpringVelocity, VUViewAnimationOptions options, VUViewAnimation::Completion completion)
{
    VUViewAnimation::start(view, target, VUSpring(duration, dampingRatio), delay,
                           [initialSpringVelocity](VUViewAnimation::Component, double from, double to) { return initialSpringVelocity * (to - from); },
                           options, std::move(completion));
}

void vu_animateView(VUView *view, QPointF center, const QRectF &bounds, const QTransform &transform, double duration, double delay,
                    double dampingRatio, VUDisplayVelocity initialVelocity, VUViewAnimationOptions options,
                    VUViewAnimation::Completion completion)
{
    VUViewGeometry target = view->geometry();
    target.center = center;
    target.bounds = bounds;
    target.transform = transform;
    VUViewAnimation::start(view, target, VUSpring(duration, dampingRatio), delay,
                           [initialVelocity](VUViewAnimation::Component component, double from, double to) {
                               switch (component) {
                               case VUViewAnimation::CenterX:
                                   return initialVelocity.x;
                               case VUViewAnimation::CenterY:
                                   return initialVelocity.y;
                               // The scale velocity is that of whatever grows or shrinks (the
                               // bounds, the transform's scale), relative to where it starts; what
                               // keeps its size is not set wobbling by it.
                               case VUViewAnimation::Width:
                               case VUViewAnimation::Height:
                               case VUViewAnimation::XScale:
                               case VUViewAnimation::YScale:
                                   return to != from ? initialVelocity.scale * from : 0.0;
                               case VUViewAnimation::Rotation:
                                   return initialVelocity.rotation;
                               default:
                                   return 0.0;
                               }
                           },
                           options, std::move(completion));
}
