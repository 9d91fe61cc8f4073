#include "SegmentedControl.h"

#include "ButtonText.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QToolButton>

namespace ui {

SegmentedControl::SegmentedControl(const QStringList &titles, QWidget *parent) : QWidget(parent), m_group(new QButtonGroup(this))
{
    setObjectName(QStringLiteral("segmentedControl"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (int i = 0; i < titles.size(); ++i) {
        auto *segment = new QToolButton;
        segment->setText(buttonText(titles[i]));
        segment->setCheckable(true);
        segment->setMinimumWidth(28);
        if (i == 0 || i + 1 == titles.size())
            segment->setProperty("segmentEnd", i == 0 ? "first" : "last");
        m_group->addButton(segment, i);
        row->addWidget(segment);
    }
    // Segments joined into one rounded strip; the selected one filled.
    setStyleSheet(QStringLiteral(
        "QToolButton { border: 1px solid palette(highlight); border-left: none; padding: 2px 6px; background: palette(base); }"
        "QToolButton[segmentEnd=\"first\"] { border-left: 1px solid palette(highlight); border-top-left-radius: 5px; border-bottom-left-radius: 5px; }"
        "QToolButton[segmentEnd=\"last\"] { border-top-right-radius: 5px; border-bottom-right-radius: 5px; }"
        "QToolButton:checked { background: palette(highlight); color: palette(highlighted-text); }"));
    connect(m_group, &QButtonGroup::idClicked, this, &SegmentedControl::valueChanged);
}

int SegmentedControl::numberOfSegments() const
{
    return int(m_group->buttons().size());
}

QString SegmentedControl::titleForSegmentAtIndex(int index) const
{
    const QAbstractButton *segment = segmentButton(index);
    return segment ? segment->text().replace(QLatin1String("&&"), QLatin1String("&")) : QString();
}

int SegmentedControl::selectedSegmentIndex() const
{
    return m_group->checkedId();
}

void SegmentedControl::setSelectedSegmentIndex(int index)
{
    if (QAbstractButton *segment = segmentButton(index)) {
        segment->setChecked(true);
        return;
    }
    // An exclusive group keeps one button checked; clearing takes lifting that rule for a moment.
    if (QAbstractButton *checked = m_group->checkedButton()) {
        m_group->setExclusive(false);
        checked->setChecked(false);
        m_group->setExclusive(true);
    }
}

QAbstractButton *SegmentedControl::segmentButton(int index) const
{
    return m_group->button(index);
}

} // namespace ui
