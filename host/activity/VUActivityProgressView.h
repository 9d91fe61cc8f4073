#pragma once
// The card that shows one activity: its title, a line of detail, a progress bar (moving without
// end while the activity cannot say how far it is), and a Cancel button while it may be
// cancelled. Once it has ended the card says how: done, cancelled, or the error in red with an
// OK button that dismisses it.

#include "activity/VUActivity.h"

#include <QFrame>
#include <QPointer>

class QLabel;
class QProgressBar;
class QPushButton;

class VUActivityProgressView : public QFrame {
    Q_OBJECT
public:
    explicit VUActivityProgressView(VUActivity *activity, QWidget *parent = nullptr);

    VUActivity *activity() const { return m_activity; }
    // What the card shows, for tests and scripts.
    QString detailText() const;
    QProgressBar *progressBar() const { return m_bar; }
    // Cancel while running, OK after a failure; hidden otherwise.
    QPushButton *button() const { return m_button; }

Q_SIGNALS:
    // The user acknowledged a failure.
    void dismissRequested();

private:
    void _update();

    QPointer<VUActivity> m_activity;
    QLabel *m_title;
    QLabel *m_detail;
    QProgressBar *m_bar;
    QPushButton *m_button;
};
