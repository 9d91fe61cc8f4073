#include "shell/VUTesterSettings.h"

#include "shell/VUTesterRootSettings.h"

#include "ui/NavigationController.h"

bool VUTesterSettings::isTransientKey(const QString &key)
{
    return key.startsWith(QLatin1String("internal"));
}

QVariant VUTesterSettings::archiveValueForKey(const QString &key) const
{
    if (isTransientKey(key))
        return {};
    return VXSettings::archiveValueForKey(key);
}

void VUTesterSettings::applyArchiveValue(const QVariant &value, const QString &key)
{
    if (isTransientKey(key))
        return;
    VXSettings::applyArchiveValue(value, key);
}

TWSection VUTesterSettings::restoreDefaultsSection(const QString &title)
{
    return TWSection::sectionWithRows({TWButtonRow::rowWithTitle(title, TWRestoreDefaultSettingsRowAction::actionWithSettingsKeyPath())});
}

QVariantList VUTesterIntegerValues(std::initializer_list<qint64> values)
{
    QVariantList list;
    for (qint64 value : values)
        list << QVariant::fromValue(value);
    return list;
}

TWRowPtr VUTesterSettings::playgroundRow(const QString &title, std::function<ui::ViewController *()> creator)
{
    // Without a playground the row has no action, so the screen shows it as inert.
    if (!creator)
        return TWButtonRow::rowWithTitle(title, nullptr);
    return TWButtonRow::vu_rowWithTitle(title, [creator = std::move(creator)](ui::ViewController *settingsScreen) {
        if (!settingsScreen || !settingsScreen->navigationController())
            return;
        if (ui::ViewController *playground = creator())
            settingsScreen->navigationController()->pushViewController(playground, true);
    });
}

TWRowPtr VUTesterSettings::sliderRow(const QString &title, const QString &key, double minimum, double maximum, double step)
{
    auto row = TWSliderRow::rowWithTitle(title, key);
    row->minValue(minimum, maximum)->vu_increment(step);
    return row;
}

TWSettings *VUTesterSharedRootSettings()
{
    return VUTesterRootSettings::sharedInstance();
}

TWSettings *VUTesterSharedChildSettings(const char *rootKey)
{
    TWSettings *child = VUTesterRootSettings::sharedInstance()->childSettings(QString::fromLatin1(rootKey));
    if (!child)
        qFatal("VUTesterRootSettings has no child settings '%s'", rootKey);
    return child;
}
