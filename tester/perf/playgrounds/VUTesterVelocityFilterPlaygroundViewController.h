#pragma once
// The velocity filter playground: drag anywhere and compare the velocity the host's gesture
// velocity filter estimates from the finger's positions (red) with the one the pan recogniser
// reports (green), as numbers and as bars on a logarithmic scale from the middle of the screen.
// Filtered bars lie just above and left of the centre lines, the recogniser's just below and
// right, so equal velocities stay visible side by side.
//
// The screen refreshes on every gesture event, or on every display refresh when the settings say
// "Display Link" as it appears; switching while it is shown changes which of the two refreshes it
// but starts or stops no frame timer until it appears again.

#include "shell/VUTesterExport.h"

#include "perf/animation/VUVelocityFilter.h"
#include "ui/ViewController.h"

#include <QHash>
#include <QPointer>

#include <optional>

class QLabel;
class VUTesterValueFiltersSettings;

namespace ui {
class DisplayLink;
class PanGestureRecognizer;
} // namespace ui

class VUTESTER_EXPORT VUTesterVelocityFilterPlaygroundViewController : public ui::ViewController {
    Q_OBJECT
public:
    explicit VUTesterVelocityFilterPlaygroundViewController(VUTesterValueFiltersSettings *settings);
    ~VUTesterVelocityFilterPlaygroundViewController() override;

    VUTesterValueFiltersSettings *settings() const { return m_settings; }

    // The text shown for filtered (fx, fy) and recognised (gx, gy) velocities.
    static QString infoText(double fx, double fy, double gx, double gy);
    // A bar's signed length for a velocity: s * sign(v) * log2(1 + |v| / 1000).
    static double barLength(double velocity, double scale);

    // For tests: what the screen shows.
    QString displayedText() const;
    // The bar under one of "horizontalVelocity", "verticalVelocity", "gestureHorizontalVelocity",
    // "gestureVerticalVelocity"; null before the first refresh.
    QWidget *indicatorView(const QString &key) const { return _indicatorViews.value(key); }
    ui::PanGestureRecognizer *panGestureRecognizer() const { return _panGestureRecognizer; }
    bool hasDisplayLink() const { return _displayLink != nullptr; }

protected:
    QWidget *loadView() override;
    void viewDidLoad() override;
    void viewDidAppear(bool animated) override;
    void viewDidDisappear(bool animated) override;

private:
    void _setWantsDisplayLink(bool wantsDisplayLink);
    void _handleDisplayLink();
    void _handlePanGestureRecognizer();
    QWidget *_indicatorViewWithKey(const QString &key, const QColor &color);
    void _update();

    QPointer<VUTesterValueFiltersSettings> m_settings;
    QLabel *_infoTextView = nullptr;
    QHash<QString, QWidget *> _indicatorViews;
    ui::PanGestureRecognizer *_panGestureRecognizer = nullptr;
    ui::DisplayLink *_displayLink = nullptr;
    bool _wantsDisplayLink = false;
    std::optional<VUVelocityFilter> _horizontalVelocityFilter;
    std::optional<VUVelocityFilter> _verticalVelocityFilter;
};
