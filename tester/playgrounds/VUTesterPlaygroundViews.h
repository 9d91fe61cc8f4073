#pragma once
// Small views the playground screens share: a bold heading over a part of a screen, and a log
// that keeps every line it is given and shows the latest few.

#include "shell/VUTesterExport.h"

#include <QLabel>
#include <QStringList>

VUTESTER_EXPORT QLabel *VUTesterPlaygroundHeading(const QString &text);

class VUTESTER_EXPORT VUTesterEventLogLabel : public QLabel {
    Q_OBJECT
public:
    // Shows `placeholder` until the first line, then the last `visibleLines` lines.
    VUTesterEventLogLabel(const QString &placeholder, int visibleLines, QWidget *parent = nullptr);

    void addLine(const QString &line);
    // Every line, oldest first.
    const QStringList &lines() const { return m_lines; }

private:
    QStringList m_lines;
    int m_visibleLines;
};
