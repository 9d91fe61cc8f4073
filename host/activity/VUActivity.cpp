#include "activity/VUActivity.h"

#include <algorithm>

VUActivity::VUActivity(const QString &title, QObject *parent)
    : QObject(parent)
    , m_title(title)
{
}

void VUActivity::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    m_title = title;
    Q_EMIT changed();
}

void VUActivity::setMessage(const QString &message)
{
    if (message == m_message)
        return;
    m_message = message;
    Q_EMIT changed();
}

void VUActivity::setProgress(double progress)
{
    progress = std::clamp(progress, 0.0, 1.0);
    if (!isRunning() || (progress == m_progress && !m_indeterminate))
        return;
    m_progress = progress;
    m_indeterminate = false;
    Q_EMIT changed();
}

void VUActivity::setIndeterminate(bool indeterminate)
{
    if (indeterminate == m_indeterminate)
        return;
    m_indeterminate = indeterminate;
    Q_EMIT changed();
}

void VUActivity::setCancellable(bool cancellable)
{
    if (cancellable == m_cancellable)
        return;
    m_cancellable = cancellable;
    Q_EMIT changed();
}

void VUActivity::finish()
{
    if (!isRunning())
        return;
    m_progress = 1;
    m_indeterminate = false;
    _end(State::Finished);
}

void VUActivity::fail(const QString &errorDescription)
{
    if (!isRunning())
        return;
    m_error = errorDescription;
    _end(State::Failed);
}

void VUActivity::cancel()
{
    if (!isRunning() || !m_cancellable)
        return;
    *m_cancelled = true;
    _end(State::Cancelled);
}

void VUActivity::_end(State state)
{
    m_state = state;
    Q_EMIT changed();
    Q_EMIT ended(state);
}
