#pragma once
// A view and its layer animated together: a tap sends the view to the tapped point on the
// animation settings' spring and, on the same spring, turns its layer's corners from square to
// round or back, so the shape changes exactly as long as the move lasts. Timing and velocity come
// from the animation settings.

#include "perf/playgrounds/VUTesterAnimationsPlaygroundViewController.h"

class VUTESTER_EXPORT VUTesterAlongsideLayerAnimationsPlaygroundViewController : public VUTesterAnimationsPlaygroundViewController {
    Q_OBJECT
public:
    static constexpr double ViewSide = 120;

    VUTesterAlongsideLayerAnimationsPlaygroundViewController();

    void animateViewsToCenter(QPointF center) override;
    void resetViewsToCenter(QPointF center) override;
    VUView *testView() const { return m_view; }

protected:
    void viewDidLoad() override;

private:
    VUView *m_view = nullptr;
};
