#include "filler/VUTesterLibraryFillerSettings.h"

#include "filler/VUTesterLibraryFillOperation.h"

#include "dispatch/Dispatch.h"
#include "photos/PrivateFolders.h"
#include "photos/VHSystemLibraryPathManager.h"
#include "ui/AlertController.h"

#include <QLoggingCategory>
#include <QPointer>

Q_DECLARE_LOGGING_CATEGORY(lcFill)

namespace {

// Aspect ratios are single-precision values widened to double, as stored by the screen.
double ratio(float value)
{
    return double(value);
}

struct Preset {
    const char *title;
    qint64 numberOfAssetsToAdd;
    qint64 media;
    qint64 orientation;
    double aspectRatio;
    qint64 longSide;
    qint64 content;
    qint64 imageOrientation;
};

const Preset kPresets[] = {
    {"Random Assets", 50, VUTesterLibraryFillerSettings::kRandom, VUTesterLibraryFillerSettings::kRandom,
     double(VUTesterLibraryFillerSettings::kRandom), 3200, 0, VUTesterLibraryFillerSettings::kRandom},
    {"Photos With All Orientations", VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets, 0, VUTesterLibraryFillerSettings::kEnumerate,
     ratio(4.0f / 3.0f), 3200, 0, VUTesterLibraryFillerSettings::kEnumerate},
    {"Photos For 1:1 Zoom Testing", VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets, 0, VUTesterLibraryFillerSettings::kEnumerate,
     ratio(4.0f / 3.0f), 8000, 1, VUTesterLibraryFillerSettings::kEnumerate},
    {"Panos", VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets, 0, VUTesterLibraryFillerSettings::kEnumerate,
     4.0, 12000, 2, 0},
};

} // namespace

VUTesterLibraryFillerSettings::VUTesterLibraryFillerSettings()
{
    declareKey(QStringLiteral("fillDestination"), Kind::Int64);
    declareKey(QStringLiteral("numberOfAssetsToAdd"), Kind::Int64);
    declareKey(QStringLiteral("media"), Kind::Int64);
    declareKey(QStringLiteral("orientation"), Kind::Int64);
    declareKey(QStringLiteral("aspectRatio"), Kind::Double);
    declareKey(QStringLiteral("longSide"), Kind::Int64);
    declareKey(QStringLiteral("content"), Kind::Int64);
    declareKey(QStringLiteral("imageOrientation"), Kind::Int64);
    declareKey(QStringLiteral("location"), Kind::Location);
    declareKey(QStringLiteral("locationRadius"), Kind::Int64);
    declareKey(QStringLiteral("internalLocationIsSet"), Kind::Bool);
    declareKey(QStringLiteral("internalProgressTitle"), Kind::String);
    declareKey(QStringLiteral("internalCancelable"), Kind::Bool);
    // The "Location" row shows whether a place is set, whatever set it: the location screen, the
    // command line, the archive at launch, restoring defaults.
    connect(this, &TWSettings::valueChanged, this, [this](const QString &key) {
        if (key == QLatin1String("location"))
            setValue(QStringLiteral("internalLocationIsSet"), !location().isNull());
    }, Qt::DirectConnection);
}

void VUTesterLibraryFillerSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setFillDestination(0);
    setNumberOfAssetsToAdd(10);
    setMedia(kRandom);
    setOrientation(kRandom);
    setAspectRatio(ratio(4.0f / 3.0f));
    setLongSide(3200);
    setContent(0);
    setImageOrientation(0);
    setLocation(QVariant());
    setLocationRadius(0);
}

void VUTesterLibraryFillerSettings::getPossibleValues(QVariantList *values, QStringList *titles, const QString &setting)
{
    QVariantList v;
    QStringList t;
    if (setting == QLatin1String("media")) {
        v = {0, 1, 2};
        t = {QStringLiteral("Photo"), QStringLiteral("Video"), QStringLiteral("Stir Shot")};
    } else if (setting == QLatin1String("orientation")) {
        v = {0, 1};
        t = {QStringLiteral("Landscape"), QStringLiteral("Portrait")};
    } else if (setting == QLatin1String("aspectRatio")) {
        v = {ratio(1.0f), ratio(4.0f), ratio(1.25f), ratio(4.0f / 3.0f), ratio(1.4f), ratio(1.5f), ratio(5.0f / 3.0f), ratio(16.0f / 9.0f)};
        t = {QStringLiteral("Square"), QStringLiteral("4 × 1 Pano"), QStringLiteral("5 × 4"), QStringLiteral("4 × 3"),
             QStringLiteral("7 × 5"), QStringLiteral("3 × 2"), QStringLiteral("5 × 3"), QStringLiteral("16 × 9")};
    } else if (setting == QLatin1String("imageOrientation")) {
        v = {0, 1, 2, 3, 4, 5, 6, 7};
        t = {QStringLiteral("Up"), QStringLiteral("Down"), QStringLiteral("Left"), QStringLiteral("Right"),
             QStringLiteral("Up Mirrored"), QStringLiteral("Down Mirrored"), QStringLiteral("Left Mirrored"), QStringLiteral("Right Mirrored")};
    } else if (setting == QLatin1String("fillDestination")) {
        v = {0, 1};
        t = {QStringLiteral("Library"), QStringLiteral("File Backed")};
    } else if (setting == QLatin1String("locationRadius")) {
        v = {0, 50, 500, 1000, 10000, 25000};
        t = {QStringLiteral("Constant"), QStringLiteral("50m"), QStringLiteral("500m"), QStringLiteral("1km"), QStringLiteral("10km"), QStringLiteral("25km")};
    }
    if (values)
        *values = v;
    if (titles)
        *titles = t;
}

void VUTesterLibraryFillerSettings::getContentChoices(QVariantList *values, QStringList *titles)
{
    *values = {0, 1, 2};
    *titles = {QStringLiteral("Solid Color"), QStringLiteral("1px Concentric Rects"), QStringLiteral("Radial Patterns")};
}

TWRowPtr VUTesterLibraryFillerSettings::_choiceRowForSettingWithTitle(const QString &title, const QString &key, bool isEnumerable)
{
    QVariantList values;
    QStringList titles;
    getPossibleValues(&values, &titles, key);
    if (isEnumerable) {
        const bool isDouble = key == QLatin1String("aspectRatio");
        values.prepend(isDouble ? QVariant(double(kRandom)) : QVariant(kRandom));
        values.prepend(isDouble ? QVariant(double(kEnumerate)) : QVariant(kEnumerate));
        titles.prepend(QStringLiteral("Random"));
        titles.prepend(QStringLiteral("Enumerate"));
    }
    auto row = TWChoiceRow::rowWithTitle(title, key);
    row->possibleValues(values, titles);
    return row;
}

QStringList VUTesterLibraryFillerSettings::presetTitles()
{
    QStringList titles;
    for (const Preset &preset : kPresets)
        titles << QString::fromLatin1(preset.title);
    return titles;
}

bool VUTesterLibraryFillerSettings::applyPreset(const QString &title)
{
    for (const Preset &preset : kPresets) {
        if (title.compare(QLatin1String(preset.title), Qt::CaseInsensitive) != 0)
            continue;
        setNumberOfAssetsToAdd(preset.numberOfAssetsToAdd);
        setMedia(preset.media);
        setOrientation(preset.orientation);
        setAspectRatio(preset.aspectRatio);
        setLongSide(preset.longSide);
        setContent(preset.content);
        setImageOrientation(preset.imageOrientation);
        return true;
    }
    return false;
}

void VUTesterLibraryFillerSettings::locationDidChange(VUTesterLocationSelectionViewController *, const QVariant &location)
{
    // internalLocationIsSet follows.
    setLocation(location);
}

TWModulePtr VUTesterLibraryFillerSettings::settingsControllerModule()
{
    auto progress = TWButtonRow::vu_rowWithTitle(QString(), [](ui::ViewController *screen) {
        auto *alert = new ui::AlertController(QStringLiteral("Cancel"), QStringLiteral("Are you sure you want to cancel the ongoing operation(s)?"));
        alert->addAction({QStringLiteral("Cancel Operation(s)"), ui::AlertAction::Style::Default, [] {
                              sharedInstance()->_cancelOperations();
                          }});
        alert->addAction({QStringLiteral("Continue"), ui::AlertAction::Style::Cancel, {}});
        if (screen)
            screen->presentViewController(alert, true);
        else
            delete alert;
    });
    progress->titleKeyPath(QStringLiteral("internalProgressTitle"))->conditionFormat(QStringLiteral("internalCancelable != 0"));

    std::vector<TWRowPtr> presets;
    for (const QString &title : presetTitles())
        presets.push_back(TWButtonRow::vu_rowWithTitle(title, [title](ui::ViewController *) { sharedInstance()->applyPreset(title); }));

    QVariantList counts{QVariant::fromValue(kAutomaticNumberOfAssets)};
    QStringList countTitles{QStringLiteral("Automatic (One of Each)")};
    for (qint64 n : {1, 2, 5, 10, 50, 100, 500, 1000, 5000, 10000, 20000, 50000, 100000, 200000, 500000}) {
        counts << QVariant::fromValue(n);
        countTitles << QString::number(n);
    }
    auto numberOfAssets = TWChoiceRow::rowWithTitle(QStringLiteral("Number of Assets"), QStringLiteral("numberOfAssetsToAdd"));
    numberOfAssets->possibleValues(counts, countTitles);
    auto longSide = TWSliderRow::rowWithTitle(QStringLiteral("Photo Long Side"), QStringLiteral("longSide"));
    longSide->minValue(100, 15000)->vu_increment(100);
    auto content = TWChoiceRow::rowWithTitle(QStringLiteral("Content"), QStringLiteral("content"));
    QVariantList contentValues;
    QStringList contentTitles;
    getContentChoices(&contentValues, &contentTitles);
    content->possibleValues(contentValues, contentTitles);
    auto location = TWChoiceRow::rowWithTitle(QStringLiteral("Location"), QStringLiteral("internalLocationIsSet"));
    location->possibleValues({true, false}, {QStringLiteral("Set"), QStringLiteral("None")});
    location->action(TWUIPushViewControllerRowAction::actionWithViewControllerCreator([](const TWRowActionContext &) -> ui::ViewController * {
        VUTesterLibraryFillerSettings *settings = sharedInstance();
        return new VUTesterLocationSelectionViewController(settings->location(), settings);
    }));

    return TWModule::moduleWithTitle(QStringLiteral("Library Filler"), {
        TWSection::sectionWithRows({TWButtonRow::vu_rowWithTitle(QStringLiteral("Fill Library"), [](ui::ViewController *) { sharedInstance()->_startOperation(); }),
                                    progress}),
        TWSection::sectionWithRows(std::move(presets), QStringLiteral("Presets")),
        TWSection::sectionWithRows({numberOfAssets,
                                    _choiceRowForSettingWithTitle(QStringLiteral("Destination"), QStringLiteral("fillDestination"), false),
                                    _choiceRowForSettingWithTitle(QStringLiteral("Media"), QStringLiteral("media"), true),
                                    _choiceRowForSettingWithTitle(QStringLiteral("Orientation"), QStringLiteral("orientation"), true),
                                    _choiceRowForSettingWithTitle(QStringLiteral("Aspect Ratio"), QStringLiteral("aspectRatio"), true),
                                    longSide,
                                    content,
                                    _choiceRowForSettingWithTitle(QStringLiteral("Image Orientation"), QStringLiteral("imageOrientation"), true),
                                    location,
                                    _choiceRowForSettingWithTitle(QStringLiteral("Location Radius"), QStringLiteral("locationRadius"), false)},
                                   QStringLiteral("Settings")),
        TWSection::sectionWithRows({TWButtonRow::vu_rowWithTitle(QStringLiteral("Delete File Backed"), [](ui::ViewController *) { _clearFileBacked(); }),
                                    TWButtonRow::rowWithTitle(QStringLiteral("Restore Defaults"), TWRestoreDefaultSettingsRowAction::actionWithSettingsKeyPath())}),
    });
}

void VUTesterLibraryFillerSettings::_startOperation()
{
    setValue(QStringLiteral("internalCancelable"), true);
    std::shared_ptr<VUTesterLibraryFillOperation> operation = VUTesterLibraryFillOperation::create(this);
    _operations.push_back(operation);
    _updateProgress();
    QPointer<VUTesterLibraryFillerSettings> self(this);
    dispatch::Queue::global()->async([self, operation] {
        operation->runWithCompletionHandler([self, operation] {
            dispatch::Queue::main()->async([self, operation] {
                if (!self)
                    return;
                std::erase(self->_operations, operation);
                ++self->_numberOfCompletedOperations;
                self->_updateProgress();
            });
        });
    });
}

void VUTesterLibraryFillerSettings::_updateProgress()
{
    if (_operations.empty()) {
        setValue(QStringLiteral("internalCancelable"), false);
        _numberOfCompletedOperations = 0;
        return;
    }
    double progress = 0;
    for (const auto &operation : _operations)
        progress += operation->progress();
    const double completed = double(_numberOfCompletedOperations);
    const double fraction = (progress + completed) / (completed + double(_operations.size()));
    setValue(QStringLiteral("internalProgressTitle"), QString::asprintf("Progress: %.0f%%", fraction * 100.0));
    if (_isUpdateScheduled)
        return;
    _isUpdateScheduled = true;
    QPointer<VUTesterLibraryFillerSettings> self(this);
    dispatch::after(dispatch::Queue::main(), std::chrono::milliseconds(250), [self] {
        if (!self)
            return;
        self->_isUpdateScheduled = false;
        self->_updateProgress();
    });
}

void VUTesterLibraryFillerSettings::_cancelOperations()
{
    for (const auto &operation : _operations)
        operation->cancel();
    setValue(QStringLiteral("internalCancelable"), false);
}

bool VUTesterLibraryFillerSettings::_clearFileBacked(QString *error)
{
    const QString path = VHSystemLibraryPathManager::sharedInstance().temporaryFileBackedDebugDirectory(false);
    // When the directory is a link, the link goes: the folder it points to is the user's.
    QString reason;
    if (photos::removeTree(path, &reason))
        return true;
    qCWarning(lcFill).noquote() << QStringLiteral("Failed to remove file backed data at %1: %2").arg(path, reason);
    if (error)
        *error = reason;
    return false;
}
