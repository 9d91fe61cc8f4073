#pragma once
// The banner a contextual notification appears in: a rounded card with its title, its message
// and a row of action buttons.

#include "notifications/VUContextualNotification.h"

#include <QList>
#include <QWidget>

class QPushButton;

class VUContextualNotificationBanner : public QWidget {
    Q_OBJECT
public:
    explicit VUContextualNotificationBanner(const VUContextualNotification &notification, QWidget *parent = nullptr);

    const QList<QPushButton *> &actionButtons() const { return m_buttons; }
    // The banner's height at `width`, laid out.
    int heightForWidth(int width) const override;
    bool hasHeightForWidth() const override { return true; }

Q_SIGNALS:
    void actionTriggered(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QList<QPushButton *> m_buttons;
};
