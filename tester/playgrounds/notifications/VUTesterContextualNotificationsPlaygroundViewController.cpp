#include "playgrounds/notifications/VUTesterContextualNotificationsPlaygroundViewController.h"

#include "playgrounds/VUTesterPlaygroundViews.h"

#include <notifications/VUContextualNotificationCenter.h>

#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kLogLines = 6;
const char *const kActionTitles[] = {"View", "Later", "Mute"};

// Stands for the screen the banners appear over: a grid of photo-like tiles.
class PhotoGrid : public QWidget {
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        constexpr int columns = 4, gap = 2;
        const double side = (width() - gap * (columns - 1)) / double(columns);
        for (int i = 0; i * (side + gap) / columns < height() + side; ++i) {
            const QRectF tile((i % columns) * (side + gap), (i / columns) * (side + gap), side, side);
            QLinearGradient gradient(tile.topLeft(), tile.bottomRight());
            gradient.setColorAt(0, QColor::fromHsv((i * 47) % 360, 90, 230));
            gradient.setColorAt(1, QColor::fromHsv((i * 47 + 40) % 360, 160, 150));
            painter.fillRect(tile, gradient);
        }
    }
};

QString reasonText(VUContextualNotificationCenter::DismissalReason reason)
{
    switch (reason) {
    case VUContextualNotificationCenter::DismissalReason::Timeout:
        return QStringLiteral("left after its delay");
    case VUContextualNotificationCenter::DismissalReason::Swipe:
        return QStringLiteral("swiped away");
    case VUContextualNotificationCenter::DismissalReason::Action:
        return QStringLiteral("answered");
    case VUContextualNotificationCenter::DismissalReason::Programmatic:
        return QStringLiteral("dismissed");
    }
    return {};
}

} // namespace

VUTesterContextualNotificationsPlaygroundViewController::VUTesterContextualNotificationsPlaygroundViewController(
    VUTesterContextualNotificationsSettings *settings, QObject *parent)
    : ui::ViewController(parent)
    , m_settings(settings)
{
    setTitle(QStringLiteral("Contextual Notifications"));
}

QWidget *VUTesterContextualNotificationsPlaygroundViewController::loadView()
{
    auto *view = new QWidget;
    auto *layout = new QVBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new PhotoGrid, 1);
    auto *panel = new QVBoxLayout;
    panel->setContentsMargins(16, 8, 16, 12);
    auto *post = new QPushButton(QStringLiteral("Post Notification"));
    connect(post, &QPushButton::clicked, this, &VUTesterContextualNotificationsPlaygroundViewController::postNotifications);
    panel->addWidget(post);
    m_log = new VUTesterEventLogLabel(QStringLiteral("Swipe a banner up to dismiss it."), kLogLines);
    panel->addWidget(m_log);
    layout->addLayout(panel);

    m_center = new VUContextualNotificationCenter(view, this);
    connect(m_center, &VUContextualNotificationCenter::didShow, this,
            [this](int identifier) { m_log->addLine(QStringLiteral("#%1 shown").arg(identifier)); });
    connect(m_center, &VUContextualNotificationCenter::didDismiss, this,
            [this](int identifier, VUContextualNotificationCenter::DismissalReason reason, int) {
                m_log->addLine(QStringLiteral("#%1 %2").arg(identifier).arg(reasonText(reason)));
            });
    return view;
}

void VUTesterContextualNotificationsPlaygroundViewController::postNotifications()
{
    view();
    const qint64 count = m_settings->numberToPost();
    for (qint64 i = 0; i < count; ++i) {
        VUContextualNotification notification;
        notification.title = m_settings->notificationTitle();
        if (count > 1)
            notification.title += QStringLiteral(" (%1 of %2)").arg(i + 1).arg(count);
        notification.message = m_settings->message();
        notification.dismissalDelay = m_settings->dismissalDelay();
        for (qint64 a = 0; a < std::min<qint64>(m_settings->numberOfActions(), std::size(kActionTitles)); ++a) {
            const QString title = QString::fromLatin1(kActionTitles[a]);
            notification.actions.append({title, [this, title] { m_log->addLine(QStringLiteral("“%1” chosen").arg(title)); }});
        }
        m_center->post(notification);
    }
    m_log->addLine(QStringLiteral("%1 posted, %2 waiting").arg(count).arg(m_center->queuedCount()));
}

const QStringList &VUTesterContextualNotificationsPlaygroundViewController::log() const
{
    return m_log->lines();
}

QList<ui::TappableRow> VUTesterContextualNotificationsPlaygroundViewController::tappableRows()
{
    return {{QString(), QStringLiteral("Post Notification"), [this] { postNotifications(); }}};
}
