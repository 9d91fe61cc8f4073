#pragma once
// A segmented control: a row of titled segments of which at most one is selected. A tap on a
// segment selects it and emits valueChanged; setting the selection from code emits nothing.

#include <QStringList>
#include <QWidget>

class QButtonGroup;
class QAbstractButton;

namespace ui {

class SegmentedControl : public QWidget {
    Q_OBJECT
public:
    explicit SegmentedControl(const QStringList &titles, QWidget *parent = nullptr);

    int numberOfSegments() const;
    QString titleForSegmentAtIndex(int index) const;
    // -1 when no segment is selected.
    int selectedSegmentIndex() const;
    // An index outside the segments clears the selection.
    void setSelectedSegmentIndex(int index);
    // The button standing for a segment, where a tap on the segment lands.
    QAbstractButton *segmentButton(int index) const;

Q_SIGNALS:
    void valueChanged(int selectedSegmentIndex);

private:
    QButtonGroup *m_group;
};

} // namespace ui
