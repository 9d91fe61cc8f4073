#pragma once
// Shows the progress of long activities over a view of the host: a tray of cards along the
// bottom, newest last, above whatever the view shows. A card stays while its activity runs;
// once it has finished or was cancelled it leaves after a moment, while a failure stays until the
// user has read it and pressed OK.

#include "activity/VUActivity.h"

#include <QList>
#include <QObject>
#include <QPointer>

class QVBoxLayout;
class QWidget;
class VUActivityProgressView;

class VUActivityController : public QObject {
    Q_OBJECT
public:
    // The tray lies over `hostView`, which the controller does not own.
    explicit VUActivityController(QWidget *hostView, QObject *parent = nullptr);
    ~VUActivityController() override;

    // A new running activity, shown at once; the controller owns it until its card leaves.
    VUActivity *beginActivity(const QString &title, bool cancellable = true);

    // Activities with a card on screen, oldest first.
    QList<VUActivity *> activities() const;
    VUActivityProgressView *progressViewForActivity(const VUActivity *activity) const;
    QWidget *tray() const { return m_tray; }

    // Seconds a finished or cancelled card stays (1.5 at first; 0 takes it away at once).
    double endedCardLifetime() const { return m_endedCardLifetime; }
    void setEndedCardLifetime(double seconds) { m_endedCardLifetime = seconds; }

Q_SIGNALS:
    void activityEnded(VUActivity *activity, VUActivity::State state);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void _remove(VUActivity *activity);
    void _layoutTray();

    QPointer<QWidget> m_hostView;
    QWidget *m_tray;
    QVBoxLayout *m_trayLayout;
    QList<VUActivityProgressView *> m_cards;
    double m_endedCardLifetime = 1.5;
};
