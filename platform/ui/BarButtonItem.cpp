#include "BarButtonItem.h"

namespace ui {

BarButtonItem::BarButtonItem(const QString &title, Action action, QObject *parent)
    : QObject(parent), m_title(title), m_action(std::move(action))
{
}

BarButtonItem::BarButtonItem(SystemItem systemItem, Action action, QObject *parent)
    : QObject(parent)
    , m_systemItem(systemItem)
    , m_title(systemItem == SystemItem::Done ? QStringLiteral("Done") : systemItem == SystemItem::Cancel ? QStringLiteral("Cancel") : QString())
    , m_action(std::move(action))
{
}

BarButtonItem::BarButtonItem(QWidget *customView, QObject *parent) : QObject(parent), m_customView(customView) {}

BarButtonItem::~BarButtonItem()
{
    delete m_customView.data();
}

void BarButtonItem::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    m_title = title;
    Q_EMIT changed();
}

void BarButtonItem::setEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    Q_EMIT changed();
}

void BarButtonItem::trigger()
{
    if (m_enabled && m_action)
        m_action(this);
}

} // namespace ui
