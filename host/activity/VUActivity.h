#pragma once
// One long activity as the host shows its progress: a title, a line of detail, how far it has
// come (or that it cannot say), whether the user may cancel it, and how it ended.
//
// The work reports on the main thread; work on other threads reads cancellationFlag() to learn
// that the user cancelled. An activity ends once: a finish or failure that comes after a cancel
// (work that had not noticed yet) changes nothing.

#include <QObject>
#include <QString>

#include <atomic>
#include <memory>

class VUActivity : public QObject {
    Q_OBJECT
public:
    enum class State { Running, Finished, Cancelled, Failed };

    explicit VUActivity(const QString &title, QObject *parent = nullptr);

    QString title() const { return m_title; }
    void setTitle(const QString &title);
    QString message() const { return m_message; }
    void setMessage(const QString &message);
    // 0 to 1 (values outside are kept to it); indeterminate until the first progress is set.
    double progress() const { return m_progress; }
    void setProgress(double progress);
    bool isIndeterminate() const { return m_indeterminate; }
    void setIndeterminate(bool indeterminate);
    bool isCancellable() const { return m_cancellable; }
    void setCancellable(bool cancellable);

    State state() const { return m_state; }
    bool isRunning() const { return m_state == State::Running; }
    QString errorDescription() const { return m_error; }

    void finish();
    void fail(const QString &errorDescription);
    // The user's cancel: ignored when the activity cannot be cancelled or has ended.
    void cancel();
    // True once cancelled; safe to read from any thread.
    std::shared_ptr<const std::atomic<bool>> cancellationFlag() const { return m_cancelled; }

Q_SIGNALS:
    void changed();
    void ended(VUActivity::State state);

private:
    void _end(State state);

    QString m_title;
    QString m_message;
    double m_progress = 0;
    bool m_indeterminate = true;
    bool m_cancellable = true;
    State m_state = State::Running;
    QString m_error;
    std::shared_ptr<std::atomic<bool>> m_cancelled = std::make_shared<std::atomic<bool>>(false);
};
