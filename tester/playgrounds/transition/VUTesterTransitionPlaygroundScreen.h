#pragma once
// A numbered, coloured screen of the transition playground. Each number has its own colour, so a
// crossfade between two screens shows plainly; while a pan drives the container, the screen
// shows how far it has gone and what fraction of the transition that is.

#include "shell/VUTesterExport.h"

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

class QLabel;
class VUTesterTransitionSettings;
namespace ui {
class GestureRecognizer;
}

class VUTESTER_EXPORT VUTesterTransitionPlaygroundScreen : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    VUTesterTransitionPlaygroundScreen(int number, bool showsPanDistance, QObject *parent = nullptr);

    int number() const { return m_number; }
    // The colour of screen `number`.
    static QColor colorForNumber(int number);
    // The label with the pan's travel; null when the screen does not show it or has no view.
    QLabel *panDistanceLabel() const { return m_panDistanceLabel; }

    // "Push" and "Pop", run by themselves as buttons would.
    QList<ui::TappableRow> tappableRows() override;

    // Presents the playground over `presenter`: screen 1 in the container the settings choose,
    // each push making the next number, with Done to leave.
    static void presentPlayground(ui::ViewController *presenter, const VUTesterTransitionSettings &settings);

protected:
    QWidget *loadView() override;
    void viewDidAppear(bool animated) override;

private:
    void showPan(ui::GestureRecognizer *recognizer);

    int m_number;
    bool m_showsPanDistance;
    QLabel *m_panDistanceLabel = nullptr;
};
