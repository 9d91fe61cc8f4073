#include "layouts/VUTesterLayoutGeneratorPlaygroundSettings.h"

#include "layouts/VUTesterLayoutsPlaygroundViewController.h"

#include "layout/VXExploreLayoutGenerator.h"
#include "layout/VXLatticerLayoutGenerator.h"
#include "layout/VXYearsMonthsLayoutGenerator.h"

namespace {

// The playground's screen: the row that starts it, its settings, "Restore Defaults". The
// playground gets the module's own settings object.
TWModulePtr playgroundModule(const QString &title, VXLayoutGeneratorFactory factory, VUTesterLayoutInput::IndexMap initialWeights = {})
{
    auto start = TWUIPushViewControllerRowAction::actionWithViewControllerCreator(
        [title, factory = std::move(factory), initialWeights = std::move(initialWeights)](const TWRowActionContext &context) -> ui::ViewController * {
            auto *settings = qobject_cast<VUTesterLayoutsPlaygroundSettings *>(context.settings);
            if (!settings)
                return nullptr;
            auto *playground = new VUTesterLayoutsPlaygroundViewController(factory, initialWeights, settings);
            playground->setTitle(title);
            return playground;
        });
    return TWModule::moduleWithTitle(title, {TWSection::sectionWithRows({TWButtonRow::rowWithTitle(QStringLiteral("Test %1").arg(title), start)}),
                                             VUTesterLayoutsPlaygroundSettings::playgroundSettingsSection(),
                                             VUTesterSettings::restoreDefaultsSection()});
}

template <typename Generator>
VXLayoutGeneratorFactory factoryOf()
{
    return [](QSizeF size) -> std::unique_ptr<VXLayoutGenerator> { return std::make_unique<Generator>(VXLayoutMetrics{size}); };
}

} // namespace

VXLayoutGeneratorFactory VUTesterLatticerPlaygroundSettings::layoutGeneratorFactory()
{
    return factoryOf<VXLatticerLayoutGenerator>();
}

TWModulePtr VUTesterLatticerPlaygroundSettings::settingsControllerModule()
{
    return playgroundModule(QStringLiteral("Latticer Playground"), layoutGeneratorFactory());
}

VXLayoutGeneratorFactory VUTesterExploreLayoutSettings::layoutGeneratorFactory()
{
    return factoryOf<VXExploreLayoutGenerator>();
}

VUTesterLayoutInput::IndexMap VUTesterExploreLayoutSettings::initialWeights()
{
    return {{4, 1}, {9, 1}};
}

TWModulePtr VUTesterExploreLayoutSettings::settingsControllerModule()
{
    return playgroundModule(QStringLiteral("Explore Layout"), layoutGeneratorFactory(), initialWeights());
}

VXLayoutGeneratorFactory VUTesterYearsMonthsLayoutsSettings::layoutGeneratorFactory()
{
    return factoryOf<VXYearsMonthsLayoutGenerator>();
}

TWModulePtr VUTesterYearsMonthsLayoutsSettings::settingsControllerModule()
{
    return playgroundModule(QStringLiteral("Years & Months Layouts"), layoutGeneratorFactory());
}
