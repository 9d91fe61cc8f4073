#pragma once
// Shows in-app notifications as banners over the top of a host view, one at a time, in the order
// they were posted. A banner slides down into view, stays for its notification's dismissal delay
// (counted only while nobody touches it), then slides away and the next one comes. Swiping it up
// dismisses it; a short or slow swipe lets it settle back. An action button runs the action's
// handler and dismisses the banner.
//
// Slides and the countdown run on the display's frame timer, so tests step them frame by frame.
// A slide counts as pending work for ui::Settle; a banner waiting out its delay does not.

#include "notifications/VUContextualNotification.h"

#include "ui/Settle.h"

#include <QObject>
#include <QPointer>

#include <deque>

class QWidget;
class VUContextualNotificationBanner;
namespace ui {
class DisplayLink;
class PanGestureRecognizer;
}

class VUContextualNotificationCenter : public QObject {
    Q_OBJECT
public:
    enum class DismissalReason { Timeout, Swipe, Action, Programmatic };
    Q_ENUM(DismissalReason)
    // Seconds a banner takes to slide in or out.
    static constexpr double kSlideDuration = 0.3;
    // A swipe dismisses when it has carried the banner up this share of its height, or was
    // released faster upwards than kDismissVelocity points a second.
    static constexpr double kDismissShare = 0.4;
    static constexpr double kDismissVelocity = 300;

    // Banners lie over `hostView`, which the centre does not own.
    explicit VUContextualNotificationCenter(QWidget *hostView, QObject *parent = nullptr);
    ~VUContextualNotificationCenter() override;

    // Queues the notification behind those posted before; returns its number (from 1).
    int post(const VUContextualNotification &notification);
    // Slides the banner on screen away.
    void dismissCurrent();
    // Drops the notifications still waiting; the one on screen stays.
    void removeAllQueued();

    // The number of the notification on screen, 0 when none.
    int currentIdentifier() const { return m_current ? m_current->identifier : 0; }
    int queuedCount() const { return int(m_queue.size()); }
    VUContextualNotificationBanner *banner() const { return m_banner; }
    // Seconds before the banner on screen leaves by itself (its full delay until shown).
    double remainingTime() const { return m_current ? m_remaining : 0; }
    bool isDragging() const { return m_phase == Phase::Dragging; }

Q_SIGNALS:
    void didShow(int identifier);
    // `actionIndex` is the action's place for DismissalReason::Action, -1 otherwise.
    void didDismiss(int identifier, VUContextualNotificationCenter::DismissalReason reason, int actionIndex);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Entry {
        int identifier;
        VUContextualNotification notification;
    };
    enum class Phase { None, SlidingIn, Shown, Dragging, Returning, SlidingOut };

    void _showNext();
    void _slide(Phase phase, double to);
    void _dismiss(DismissalReason reason, int actionIndex = -1);
    void _tick(double timestamp);
    void _pan();
    void _layoutBanner();
    void _setY(double y);
    double _shownY() const;
    double _hiddenY() const;

    QPointer<QWidget> m_hostView;
    std::deque<Entry> m_queue;
    std::unique_ptr<Entry> m_current;
    VUContextualNotificationBanner *m_banner = nullptr;
    ui::PanGestureRecognizer *m_pan = nullptr;
    ui::DisplayLink *m_link;
    int m_nextIdentifier = 1;

    Phase m_phase = Phase::None;
    double m_y = 0;
    double m_slideFrom = 0, m_slideTo = 0, m_slideStart = 0;
    double m_dragStartY = 0;
    double m_remaining = 0;
    double m_lastTimestamp = 0;
    DismissalReason m_reason = DismissalReason::Programmatic;
    int m_actionIndex = -1;
    ui::PendingWork m_sliding;
};
