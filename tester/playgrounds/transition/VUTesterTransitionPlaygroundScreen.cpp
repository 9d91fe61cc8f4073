#include "playgrounds/transition/VUTesterTransitionPlaygroundScreen.h"

#include "playgrounds/transition/VUTesterTransitionNavigationController.h"
#include "playgrounds/transition/VUTesterTransitionSettings.h"
#include "shell/VUTesterModalPresentation.h"

#include "ui/BackgroundColor.h"
#include "ui/BarButtonItem.h"
#include "ui/PanGestureRecognizer.h"

#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

#include <cmath>

VUTesterTransitionPlaygroundScreen::VUTesterTransitionPlaygroundScreen(int number, bool showsPanDistance, QObject *parent)
    : ui::ViewController(parent), m_number(number), m_showsPanDistance(showsPanDistance)
{
    setTitle(QStringLiteral("Screen %1").arg(number));
}

QColor VUTesterTransitionPlaygroundScreen::colorForNumber(int number)
{
    // Steps of the golden angle keep neighbours far apart on the colour wheel.
    return QColor::fromHsvF(std::fmod(number * 0.381966, 1.0), 0.45, 0.95);
}

QWidget *VUTesterTransitionPlaygroundScreen::loadView()
{
    auto *view = new QWidget;
    ui::setBackgroundColor(view, colorForNumber(m_number));
    auto *column = new QVBoxLayout(view);
    auto *number = new QLabel(QString::number(m_number));
    number->setObjectName(QStringLiteral("number"));
    number->setAlignment(Qt::AlignCenter);
    QFont font = number->font();
    font.setPointSize(96);
    font.setBold(true);
    number->setFont(font);
    column->addStretch();
    column->addWidget(number);
    auto *hint = new QLabel(QStringLiteral("Drag from the right half to push, from the left half to pop"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setWordWrap(true);
    column->addWidget(hint);
    if (m_showsPanDistance) {
        m_panDistanceLabel = new QLabel(QStringLiteral("Pan: –"));
        m_panDistanceLabel->setObjectName(QStringLiteral("panDistance"));
        m_panDistanceLabel->setAlignment(Qt::AlignCenter);
        column->addWidget(m_panDistanceLabel);
    }
    column->addStretch();
    return view;
}

void VUTesterTransitionPlaygroundScreen::viewDidAppear(bool animated)
{
    auto *container = qobject_cast<VUTesterTransitionNavigationController *>(navigationController());
    if (m_panDistanceLabel && container && container->panGestureRecognizer())
        connect(container->panGestureRecognizer(), &ui::GestureRecognizer::action, this, &VUTesterTransitionPlaygroundScreen::showPan,
                Qt::UniqueConnection);
}

void VUTesterTransitionPlaygroundScreen::showPan(ui::GestureRecognizer *recognizer)
{
    const double travel = static_cast<ui::PanGestureRecognizer *>(recognizer)->translation().x();
    m_panDistanceLabel->setText(QStringLiteral("Pan: %1 pt (%2 %)")
                                    .arg(travel, 0, 'f', 0)
                                    .arg(std::abs(travel) / VUTesterTransitionNavigationController::kPanDistance * 100, 0, 'f', 0));
}

QList<ui::TappableRow> VUTesterTransitionPlaygroundScreen::tappableRows()
{
    QList<ui::TappableRow> rows;
    ui::NavigationController *navigation = navigationController();
    if (!navigation)
        return rows;
    rows.append({QString(), QStringLiteral("Push"), [this, navigation] {
                     navigation->pushViewController(new VUTesterTransitionPlaygroundScreen(m_number + 1, m_showsPanDistance), true);
                 }});
    if (navigation->viewControllers().size() > 1)
        rows.append({QString(), QStringLiteral("Pop"), [navigation] { navigation->popViewControllerAnimated(true); }});
    return rows;
}

void VUTesterTransitionPlaygroundScreen::presentPlayground(ui::ViewController *presenter, const VUTesterTransitionSettings &settings)
{
    const bool shows = settings.showsPanDistance();
    auto *first = new VUTesterTransitionPlaygroundScreen(1, shows);
    ui::NavigationController *container = nullptr;
    if (settings.transitionKind() == VUTesterTransitionSettings::TransitionKindStandardSlide) {
        container = new VUNavigationController(first);
    } else {
        auto *interactive = new VUTesterTransitionNavigationController;
        // Numbered from the top of the stack, so a pop and a new push give the same number again.
        interactive->setPushedViewControllerCreationBlock([interactive = QPointer<VUTesterTransitionNavigationController>(interactive), shows] {
            const int top = interactive ? int(interactive->viewControllers().size()) : 0;
            return new VUTesterTransitionPlaygroundScreen(top + 1, shows);
        });
        interactive->pushViewController(first, false);
        container = interactive;
    }
    first->navigationItem()->setLeftBarButtonItem(
        new ui::BarButtonItem(ui::BarButtonItem::SystemItem::Done, [presenter = QPointer<ui::ViewController>(presenter)](ui::BarButtonItem *sender) {
            if (presenter)
                vutester_dismiss(presenter, sender);
        }));
    presenter->presentViewController(container, true);
}
