#pragma once
// Alerts and action sheets: a title, a message and actions, presented over a window. Tapping an
// action dismisses the alert, then runs the action's handler.

#include "ViewController.h"

#include <functional>
#include <vector>

namespace ui {

struct AlertAction {
    enum class Style { Default, Cancel, Destructive };
    QString title;
    Style style = Style::Default;
    std::function<void()> handler;
};

class AlertController : public ViewController {
    Q_OBJECT
public:
    enum class Style { Alert, ActionSheet };

    AlertController(const QString &title, const QString &message, Style style = Style::Alert, QObject *parent = nullptr);
    void addAction(AlertAction action);

    QString message() const { return m_message; }
    Style preferredStyle() const { return m_style; }
    const std::vector<AlertAction> &actions() const { return m_actions; }

protected:
    QWidget *loadView() override;

private:
    void choose(size_t index);

    QString m_message;
    Style m_style;
    std::vector<AlertAction> m_actions;
};

} // namespace ui
