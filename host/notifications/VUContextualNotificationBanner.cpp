#include "notifications/VUContextualNotificationBanner.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr double kCornerRadius = 14;
constexpr double kShadow = 3;
}

VUContextualNotificationBanner::VUContextualNotificationBanner(const VUContextualNotification &notification, QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 12, 16, 12 + int(kShadow));
    layout->setSpacing(4);
    auto *title = new QLabel(notification.title);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    title->setWordWrap(true);
    layout->addWidget(title);
    if (!notification.message.isEmpty()) {
        auto *message = new QLabel(notification.message);
        message->setWordWrap(true);
        layout->addWidget(message);
    }
    if (!notification.actions.isEmpty()) {
        auto *row = new QHBoxLayout;
        row->setSpacing(8);
        row->addStretch(1);
        for (int i = 0; i < notification.actions.size(); ++i) {
            auto *button = new QPushButton(notification.actions[i].title);
            connect(button, &QPushButton::clicked, this, [this, i] { Q_EMIT actionTriggered(i); });
            m_buttons.append(button);
            row->addWidget(button);
        }
        layout->addSpacing(4);
        layout->addLayout(row);
    }
}

int VUContextualNotificationBanner::heightForWidth(int width) const
{
    return layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width) : layout()->sizeHint().height();
}

void VUContextualNotificationBanner::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // A soft edge below the card stands for its shadow without an effect to composite.
    const QRectF card = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -kShadow);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 45));
    painter.drawRoundedRect(card.translated(0, kShadow - 0.5), kCornerRadius, kCornerRadius);
    QColor fill = palette().color(QPalette::Base);
    fill.setAlpha(245);
    painter.setBrush(fill);
    painter.setPen(QPen(palette().color(QPalette::Mid), 0.5));
    painter.drawRoundedRect(card, kCornerRadius, kCornerRadius);
}
