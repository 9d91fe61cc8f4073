#pragma once
// The Activity Controller playground: "Start Activity" begins an activity as the settings
// describe it, shown by the host's activity controller in its tray over the screen; Cancel stops
// it. Above, a card in each state the controller can show; below, what became of each activity.

#include "playgrounds/activity/VUTesterActivitySettings.h"

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <QPointer>
#include <QStringList>

class VUActivity;
class VUTesterEventLogLabel;
class VUActivityController;

class VUTESTER_EXPORT VUTesterActivityPlaygroundViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    explicit VUTesterActivityPlaygroundViewController(VUTesterActivitySettings *settings, QObject *parent = nullptr);

    // Begins an activity with the settings as they are now. Needs the view.
    VUActivity *startActivity();
    // Null until the view is loaded.
    VUActivityController *activityController() const { return m_controller; }
    // One line per activity event, oldest first.
    const QStringList &log() const;

    QList<ui::TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

private:
    QPointer<VUTesterActivitySettings> m_settings;
    VUActivityController *m_controller = nullptr;
    VUTesterEventLogLabel *m_log = nullptr;
    QList<VUActivity *> m_gallery;
};
