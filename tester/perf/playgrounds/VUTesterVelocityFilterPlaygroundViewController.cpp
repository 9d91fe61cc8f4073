#include "perf/playgrounds/VUTesterVelocityFilterPlaygroundViewController.h"

#include "perf/VUTesterValueFiltersSettings.h"

#include "ui/BackgroundColor.h"
#include "ui/DisplayLink.h"
#include "ui/Geometry.h"
#include "ui/PanGestureRecognizer.h"

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

// The text view's margins: top, left, bottom, right.
constexpr int kInsetTop = 100, kInsetLeft = 20, kInsetBottom = 100, kInsetRight = 20;
constexpr double kBarThickness = 5;

} // namespace

VUTesterVelocityFilterPlaygroundViewController::VUTesterVelocityFilterPlaygroundViewController(VUTesterValueFiltersSettings *settings)
    : m_settings(settings)
{
    setTitle(QStringLiteral("Velocity Filter"));
}

VUTesterVelocityFilterPlaygroundViewController::~VUTesterVelocityFilterPlaygroundViewController() = default;

QString VUTesterVelocityFilterPlaygroundViewController::infoText(double fx, double fy, double gx, double gy)
{
    return QString::asprintf("Filter Velocity:\nx: %+10.1f\ny: %+10.1f\n\nGesture Velocity:\nx: %+10.1f\ny: %+10.1f", fx, fy, gx, gy);
}

double VUTesterVelocityFilterPlaygroundViewController::barLength(double velocity, double scale)
{
    const double sign = velocity > 0 ? 1 : velocity < 0 ? -1 : 0;
    return scale * sign * std::log2(1 + std::abs(velocity) / 1000);
}

QString VUTesterVelocityFilterPlaygroundViewController::displayedText() const
{
    return _infoTextView ? _infoTextView->text() : QString();
}

QWidget *VUTesterVelocityFilterPlaygroundViewController::loadView()
{
    auto *view = new QWidget;
    ui::setBackgroundColor(view, Qt::white);
    auto *layout = new QVBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    _infoTextView = new QLabel;
    _infoTextView->setObjectName(QStringLiteral("infoText"));
    _infoTextView->setAttribute(Qt::WA_TransparentForMouseEvents);
    _infoTextView->setTextInteractionFlags(Qt::NoTextInteraction);
    _infoTextView->setContentsMargins(kInsetLeft, kInsetTop, kInsetRight, kInsetBottom);
    _infoTextView->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QFont font(QStringLiteral("Menlo"), 18);
    font.setStyleHint(QFont::Monospace);
    _infoTextView->setFont(font);
    layout->addWidget(_infoTextView);
    _panGestureRecognizer = new ui::PanGestureRecognizer(view);
    connect(_panGestureRecognizer, &ui::GestureRecognizer::action, this, [this] { _handlePanGestureRecognizer(); });
    return view;
}

void VUTesterVelocityFilterPlaygroundViewController::viewDidLoad()
{
    _update();
}

void VUTesterVelocityFilterPlaygroundViewController::viewDidAppear(bool)
{
    _setWantsDisplayLink(m_settings && m_settings->updateSchedule() == VUTesterValueFiltersSettings::UpdateScheduleDisplayLink);
}

void VUTesterVelocityFilterPlaygroundViewController::viewDidDisappear(bool)
{
    _setWantsDisplayLink(false);
}

void VUTesterVelocityFilterPlaygroundViewController::_setWantsDisplayLink(bool wantsDisplayLink)
{
    if (wantsDisplayLink == _wantsDisplayLink)
        return;
    _wantsDisplayLink = wantsDisplayLink;
    if (wantsDisplayLink) {
        _displayLink = new ui::DisplayLink([this](ui::DisplayLink &) { _handleDisplayLink(); }, this);
        _displayLink->schedule(view());
    } else {
        _displayLink->invalidate();
        _displayLink->deleteLater();
        _displayLink = nullptr;
    }
}

void VUTesterVelocityFilterPlaygroundViewController::_handleDisplayLink()
{
    if (m_settings && m_settings->updateSchedule() == VUTesterValueFiltersSettings::UpdateScheduleDisplayLink)
        _update();
}

void VUTesterVelocityFilterPlaygroundViewController::_handlePanGestureRecognizer()
{
    const ui::GestureRecognizer::State state = _panGestureRecognizer->state();
    if (state == ui::GestureRecognizer::State::Began && m_settings) {
        // A switch that is off keeps the last filter, and with it its last reading, on screen.
        if (m_settings->computeHorizontalVelocity())
            _horizontalVelocityFilter = VUVelocityFilter::gestureVelocityFilter();
        if (m_settings->computeVerticalVelocity())
            _verticalVelocityFilter = VUVelocityFilter::gestureVelocityFilter();
    } else if (state == ui::GestureRecognizer::State::Changed) {
        const QPointF location = _panGestureRecognizer->locationInView(view());
        if (_horizontalVelocityFilter)
            _horizontalVelocityFilter->setInputValue(location.x());
        if (_verticalVelocityFilter)
            _verticalVelocityFilter->setInputValue(location.y());
    }
    if (m_settings && m_settings->updateSchedule() == VUTesterValueFiltersSettings::UpdateScheduleGesture)
        _update();
}

QWidget *VUTesterVelocityFilterPlaygroundViewController::_indicatorViewWithKey(const QString &key, const QColor &color)
{
    QWidget *indicator = _indicatorViews.value(key);
    if (!indicator) {
        indicator = new QWidget(view());
        indicator->setObjectName(key);
        indicator->setAttribute(Qt::WA_TransparentForMouseEvents);
        indicator->setGeometry(0, 0, 0, 0);
        indicator->show();
        _indicatorViews.insert(key, indicator);
    }
    ui::setBackgroundColor(indicator, color);
    return indicator;
}

void VUTesterVelocityFilterPlaygroundViewController::_update()
{
    const double fx = _horizontalVelocityFilter ? _horizontalVelocityFilter->outputValue() : 0;
    const double fy = _verticalVelocityFilter ? _verticalVelocityFilter->outputValue() : 0;
    const QPointF gesture = _panGestureRecognizer->velocity();
    _infoTextView->setText(infoText(fx, fy, gesture.x(), gesture.y()));

    const QRectF bounds = view()->rect();
    const double scale = 0.25 * std::min(bounds.width(), bounds.height());
    const double midX = bounds.center().x(), midY = bounds.center().y();
    struct Bar {
        const char *key;
        QColor color;
        QRectF rect;
    };
    const Bar bars[] = {
        {"horizontalVelocity", Qt::red, QRectF(midX, midY - kBarThickness, barLength(fx, scale), kBarThickness)},
        {"verticalVelocity", Qt::red, QRectF(midX - kBarThickness, midY, kBarThickness, barLength(fy, scale))},
        {"gestureHorizontalVelocity", Qt::green, QRectF(midX, midY, barLength(gesture.x(), scale), kBarThickness)},
        {"gestureVerticalVelocity", Qt::green, QRectF(midX, midY, kBarThickness, barLength(gesture.y(), scale))},
    };
    for (const Bar &bar : bars)
        _indicatorViewWithKey(QString::fromLatin1(bar.key), bar.color)->setGeometry(ui::pixelRect(bar.rect.normalized()));
}
