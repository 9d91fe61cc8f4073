#include "playgrounds/notifications/VUTesterContextualNotificationsSettings.h"

#include "playgrounds/notifications/VUTesterContextualNotificationsPlaygroundViewController.h"

VUTesterContextualNotificationsSettings::VUTesterContextualNotificationsSettings()
{
    declareKey(QStringLiteral("notificationTitle"), Kind::String);
    declareKey(QStringLiteral("message"), Kind::String);
    declareKey(QStringLiteral("numberOfActions"), Kind::Int64);
    declareKey(QStringLiteral("dismissalDelay"), Kind::Double);
    declareKey(QStringLiteral("numberToPost"), Kind::Int64);
}

void VUTesterContextualNotificationsSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setNotificationTitle(QStringLiteral("Shared Album"));
    setMessage(QStringLiteral("Anna added 12 photos to “Summer Hike”."));
    setNumberOfActions(2);
    setDismissalDelay(4);
    setNumberToPost(1);
}

TWModulePtr VUTesterContextualNotificationsSettings::settingsControllerModule()
{
    auto actions = TWSliderRow::rowWithTitle(QStringLiteral("Actions"), QStringLiteral("numberOfActions"));
    actions->minValue(0, 3)->vu_increment(1);
    auto delay = TWSliderRow::rowWithTitle(QStringLiteral("Dismiss After (s, 0: Never)"), QStringLiteral("dismissalDelay"));
    delay->minValue(0, 10)->vu_increment(0.5);
    auto count = TWSliderRow::rowWithTitle(QStringLiteral("Posted at Once"), QStringLiteral("numberToPost"));
    count->minValue(1, 5)->vu_increment(1);
    return TWModule::moduleWithTitle(QStringLiteral("Contextual Notifications"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Contextual Notifications"),
                                                  [] { return new VUTesterContextualNotificationsPlaygroundViewController(sharedInstance()); })}),
        TWSection::sectionWithRows({TWEditStringRow::rowWithTitle(QStringLiteral("Title"), QStringLiteral("notificationTitle")),
                                    TWEditStringRow::rowWithTitle(QStringLiteral("Message"), QStringLiteral("message")), actions},
                                   QStringLiteral("Notification")),
        TWSection::sectionWithRows({delay, count}, QStringLiteral("Queue")),
        restoreDefaultsSection(),
    });
}
