#include "perf/VUTesterAnimationsSettings.h"

#include "perf/playgrounds/VUTesterAlongsideLayerAnimationsPlaygroundViewController.h"
#include "perf/playgrounds/VUTesterInitialVelocitiesPlaygroundViewController.h"

VUTesterAnimationsSettings::VUTesterAnimationsSettings()
{
    declareKey(QStringLiteral("duration"), Kind::Double);
    declareKey(QStringLiteral("delay"), Kind::Double);
    declareKey(QStringLiteral("springDampingRatio"), Kind::Double);
    declareKey(QStringLiteral("initialSpringVelocity"), Kind::Double);
}

void VUTesterAnimationsSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setDuration(2.0);
    setDelay(0.0);
    setSpringDampingRatio(0.5);
    setInitialSpringVelocity(5.0);
}

TWModulePtr VUTesterAnimationsSettings::settingsControllerModule()
{
    const auto slider = [](const char *title, const char *key, double min, double max, double step) {
        return sliderRow(QString::fromUtf8(title), QString::fromLatin1(key), min, max, step);
    };
    return TWModule::moduleWithTitle(QStringLiteral("Animations"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Initial Velocities"),
                                                  [] { return new VUTesterInitialVelocitiesPlaygroundViewController; }),
                                    playgroundRow(QStringLiteral("Test Alongside Layer Animations"),
                                                  [] { return new VUTesterAlongsideLayerAnimationsPlaygroundViewController; })}),
        TWSection::sectionWithRows({slider("Duration", "duration", 0, 10, 0.1),
                                    slider("Delay", "delay", 0, 1, 0),
                                    slider("Spring Damping Ratio", "springDampingRatio", 0, 1, 0.05),
                                    slider("Initial Spring Velocity", "initialSpringVelocity", 0, 50, 0.5)},
                                   QStringLiteral("Parameters")),
        restoreDefaultsSection(),
    });
}
