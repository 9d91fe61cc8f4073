#include "AlertController.h"

#include "ButtonText.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

AlertController::AlertController(const QString &title, const QString &message, Style style, QObject *parent)
    : ViewController(parent), m_message(message), m_style(style)
{
    setTitle(title);
}

void AlertController::addAction(AlertAction action)
{
    m_actions.push_back(std::move(action));
}

QWidget *AlertController::loadView()
{
    auto *dim = new QWidget;
    dim->setObjectName(QStringLiteral("alertBackground"));
    dim->setStyleSheet(QStringLiteral("#alertBackground { background: rgba(0, 0, 0, 90); }"));
    auto *outer = new QVBoxLayout(dim);
    if (m_style == Style::ActionSheet)
        outer->addStretch(1);

    auto *card = new QFrame;
    card->setObjectName(QStringLiteral("alertCard"));
    card->setFrameShape(QFrame::StyledPanel);
    card->setAutoFillBackground(true);
    card->setMaximumWidth(360);
    auto *column = new QVBoxLayout(card);
    if (!title().isEmpty()) {
        auto *titleLabel = new QLabel(title());
        titleLabel->setObjectName(QStringLiteral("alertTitle"));
        QFont font = titleLabel->font();
        font.setBold(true);
        titleLabel->setFont(font);
        titleLabel->setAlignment(Qt::AlignCenter);
        titleLabel->setWordWrap(true);
        column->addWidget(titleLabel);
    }
    if (!m_message.isEmpty()) {
        auto *messageLabel = new QLabel(m_message);
        messageLabel->setObjectName(QStringLiteral("alertMessage"));
        messageLabel->setAlignment(Qt::AlignCenter);
        messageLabel->setWordWrap(true);
        column->addWidget(messageLabel);
    }
    // Cancel actions come last, as people expect to find them.
    std::vector<size_t> order;
    for (size_t i = 0; i < m_actions.size(); ++i)
        if (m_actions[i].style != AlertAction::Style::Cancel)
            order.push_back(i);
    for (size_t i = 0; i < m_actions.size(); ++i)
        if (m_actions[i].style == AlertAction::Style::Cancel)
            order.push_back(i);
    for (size_t i : order) {
        auto *button = new QPushButton(buttonText(m_actions[i].title));
        button->setObjectName(m_actions[i].title);
        if (m_actions[i].style == AlertAction::Style::Cancel) {
            QFont font = button->font();
            font.setBold(true);
            button->setFont(font);
        } else if (m_actions[i].style == AlertAction::Style::Destructive) {
            button->setStyleSheet(QStringLiteral("color: #d00;"));
        }
        connect(button, &QPushButton::clicked, this, [this, i] { choose(i); });
        column->addWidget(button);
    }
    outer->addWidget(card, 0, Qt::AlignHCenter);
    if (m_style == Style::Alert) {
        outer->insertStretch(0, 1);
        outer->addStretch(1);
    }
    return dim;
}

void AlertController::choose(size_t index)
{
    std::function<void()> handler = m_actions[index].handler;
    dismissViewControllerAnimated(true, std::move(handler));
}

} // namespace ui
