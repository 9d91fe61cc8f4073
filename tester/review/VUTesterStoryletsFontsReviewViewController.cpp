#include "review/VUTesterStoryletsFontsReviewViewController.h"

#include "media/VUTesterImageCollage.h"
#include "review/VUTesterMockExtendedTraitCollection.h"
#include "review/VUTesterStoryletsFontsSettingParameters.h"
#include "review/VUTesterStoryletsRelatedSettings.h"
#include "review/VUTesterStringMatrix.h"
#include "review/VUTesterViewMatrix.h"
#include "review/VUTesterViewMatrixScrollView.h"
#include "storylets/VXFeatureSpec.h"
#include "storylets/VXImagePlaceholderView.h"
#include "storylets/VXTileLayoutTemplate.h"
#include "storylets/VXTitleSubtitleLabel.h"
#include "ui/AlertController.h"
#include "ui/BackgroundColor.h"
#include "ui/BarButtonItem.h"
#include "ui/Settle.h"
#include "ui/TapGestureRecognizer.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QImageWriter>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QShortcut>

namespace {

int g_observationContext;

// The sheet starts below the band of controls at the top of the screen.
constexpr int kTopInset = 80;

bool fontIsInstalled(const QString &family)
{
    static const QStringList families = QFontDatabase::families();
    return families.contains(family, Qt::CaseInsensitive);
}

bool writePng(const QImage &image, const QString &path, QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        QImageWriter writer(&file, "png");
        // zlib's fastest level: sheets are mostly flat colour and compress well at any level.
        writer.setQuality(80);
        if (writer.write(image) && file.commit())
            return true;
        *error = QStringLiteral("couldn't write %1: %2").arg(path, writer.error() != QImageWriter::UnknownError ? writer.errorString() : file.errorString());
        return false;
    }
    *error = QStringLiteral("couldn't write %1: %2").arg(path, file.errorString());
    return false;
}

// The captured-data folder, made when it is missing.
bool prepareFolder(const QString &folder, QString *error)
{
    if (folder.trimmed().isEmpty()) {
        *error = QStringLiteral("no captured-data folder is set");
        return false;
    }
    if (!QDir().mkpath(folder)) {
        *error = QStringLiteral("couldn't create the folder %1").arg(folder);
        return false;
    }
    return true;
}

} // namespace

void *const VUTesterExtendedTraitCollectionObservationContext = &g_observationContext;

QString VUTesterStoryletsFontsReviewViewController::columnTitleForFont(const QString &font)
{
    QString title = font.left(8) + QStringLiteral("…");
    if (!fontIsInstalled(font))
        title += QStringLiteral(" (missing)");
    return title;
}

const QString VUTesterStoryletsFontsReviewViewController::kSnapshotFileNameFormat = QStringLiteral("VUTesterStoryletsFontsReview-%03i.png");
const QString VUTesterStoryletsFontsReviewViewController::kRecordingImageFileName = QStringLiteral("VUTesterStoryletsFontsReview.png");
const QString VUTesterStoryletsFontsReviewViewController::kRecordingTextFileName = QStringLiteral("VUTesterStoryletsFontsReview.txt");

VUTesterStoryletsFontsReviewViewController::VUTesterStoryletsFontsReviewViewController(QObject *parent) : ui::ViewController(parent)
{
    setTitle(QStringLiteral("Fonts Review"));
}

VUTesterStoryletsFontsReviewViewController::~VUTesterStoryletsFontsReviewViewController()
{
    if (m_traits)
        m_traits->unregisterChangeObserver(this, VUTesterExtendedTraitCollectionObservationContext);
}

void VUTesterStoryletsFontsReviewViewController::viewDidLoad()
{
    ui::setBackgroundColor(view(), Qt::white);
    _settings = new VUTesterStoryletsRelatedSettings;
    _settings->setParent(this);
    _settings->copyValuesFrom(*VUTesterStoryletsRelatedSettings::sharedInstance());
    connect(_settings, &TWSettings::valueChanged, this, [this] { _updateTileViews(); });

    auto *traits = VXExtendedTraitCollection::enabledForViewController(this);
    traits->registerChangeObserver(this, VUTesterExtendedTraitCollectionObservationContext);
    m_traits = traits;

    _updateTileViews();

    _settingParameters = VUTesterStoryletsFontsSettingParameters();
    QList<ui::BarButtonItem *> items;
    for (const auto &parameter : _settingParameters) {
        parameter->setSettings(_settings);
        parameter->setPresentingViewController(this);
        items += parameter->barButtonItems();
    }
    navigationItem()->setLeftBarButtonItems(items);
    navigationItem()->setRightBarButtonItem(new ui::BarButtonItem(ui::BarButtonItem::SystemItem::Done, [this](ui::BarButtonItem *) { _handleDoneItem(); }));

    auto *recording = new ui::TapGestureRecognizer(view());
    recording->setNumberOfTouchesRequired(2);
    recording->setNumberOfTapsRequired(2);
    connect(recording, &ui::GestureRecognizer::action, this, &VUTesterStoryletsFontsReviewViewController::_handleRecordingGesture);
    auto *snapshot = new ui::TapGestureRecognizer(view());
    snapshot->setNumberOfTouchesRequired(3);
    connect(snapshot, &ui::GestureRecognizer::action, this, &VUTesterStoryletsFontsReviewViewController::_handleSnapshotGesture);
    installDesktopControls();
}

void VUTesterStoryletsFontsReviewViewController::installDesktopControls()
{
    // Without a touch screen the two gestures are buttons and shortcuts in the band above the sheet.
    auto *band = new QWidget(view());
    band->setObjectName(QStringLiteral("reviewControls"));
    auto *row = new QHBoxLayout(band);
    auto *snapshot = new QPushButton(QStringLiteral("Snapshot"), band);
    snapshot->setObjectName(QStringLiteral("snapshotButton"));
    auto *record = new QPushButton(QStringLiteral("Record"), band);
    record->setObjectName(QStringLiteral("recordButton"));
    auto *hint = new QLabel(QStringLiteral("Double tap: zoom · Ctrl+S · Ctrl+R"), band);
    hint->setStyleSheet(QStringLiteral("color: #8e8e93;"));
    row->addWidget(snapshot);
    row->addWidget(record);
    row->addWidget(hint, 1);
    band->setGeometry(0, 0, view()->width(), kTopInset);
    band->setAutoFillBackground(false);
    connect(snapshot, &QPushButton::clicked, this, &VUTesterStoryletsFontsReviewViewController::takeSnapshot);
    connect(record, &QPushButton::clicked, this, &VUTesterStoryletsFontsReviewViewController::toggleRecording);
    new QShortcut(QKeySequence(QStringLiteral("Ctrl+S")), view(), [this] { takeSnapshot(); });
    new QShortcut(QKeySequence(QStringLiteral("Ctrl+R")), view(), [this] { toggleRecording(); });
}

void VUTesterStoryletsFontsReviewViewController::didChange(VXObservable *, quint64 change, void *context)
{
    if (context != VUTesterExtendedTraitCollectionObservationContext)
        qFatal("VUTesterStoryletsFontsReviewViewController: a change with a foreign observation context");
    if (change & VXExtendedTraitCollectionChangeLayoutReferenceSize)
        _updateTileViews();
}

void VUTesterStoryletsFontsReviewViewController::_updateTileViews()
{
    if (!_settings)
        return;
    VUTesterViewMatrix matrix;
    matrix.setPadding(QMarginsF(20, 20, 20, 20));
    matrix.setInterCellSpacing(QSizeF(20, 20));

    auto parameters = VUTesterStoryletsFontsSettingParameters();
    for (const auto &parameter : parameters)
        parameter->setSettings(_settings);
    const QVariantList fonts = parameters[0]->valuesToEnumerate();
    const QVariantList titles = parameters[1]->valuesToEnumerate();
    const QVariantList tileKinds = parameters[3]->valuesToEnumerate();
    const QVariantList formFactors = parameters[4]->valuesToEnumerate();
    const QVariantList orientations = parameters[5]->valuesToEnumerate();
    const QString subtitle = _settings->subtitleText();
    const double white = std::clamp(_settings->backgroundWhite(), 0.0, 1.0);

    QString lastRecordedKey;
    qint64 column = 1;
    for (const QVariant &fontValue : fonts) {
        const QString font = fontValue.toString();
        if (fonts.size() > 1)
            matrix.setTitle(columnTitleForFont(font), column, 0);
        qint64 row = 1;
        for (const QVariant &titleValue : titles) {
            const QString title = titleValue.toString();
            const qsizetype split = title.indexOf(QLatin1String("//"));
            const QString shown = split < 0 ? title : title.left(split);
            const QStringList languageAndKey = split < 0 ? QStringList() : title.mid(split + 2).split(QLatin1Char('\t'));
            for (const QVariant &formFactor : formFactors)
                for (const QVariant &orientation : orientations)
                    for (const QVariant &tileKind : tileKinds) {
                        QStringList rowTitle;
                        if (formFactors.size() > 1)
                            rowTitle << parameters[4]->titleForValue(formFactor);
                        if (orientations.size() > 1)
                            rowTitle << parameters[5]->titleForValue(orientation);
                        if (tileKinds.size() > 1)
                            rowTitle << parameters[3]->titleForValue(tileKind);
                        matrix.setTitle(rowTitle.join(QLatin1Char(' ')), 0, row);

                        const VUTesterStoryletsTile tile = VUTesterStoryletsTileForKind(tileKind.toLongLong(), formFactor.toLongLong(), orientation.toLongLong());
                        if (tile.isDrawn()) {
                            const VUTesterMockExtendedTraitCollection traits(formFactor.toLongLong(), orientation.toLongLong());
                            const VXFeatureSpec featureSpec(traits);
                            VXTileLayoutTemplate layout(featureSpec, tile.style);
                            layout.setBounds(QRectF(QPointF(0, 0), tile.size));
                            layout.prepare();

                            auto *tileView = new QWidget;
                            tileView->resize(tile.size.toSize());
                            auto *image = new VXImagePlaceholderView(tileView);
                            VXImageViewSpec imageSpec = featureSpec.imageViewSpecForTileStyle(tile.style, tile.size);
                            imageSpec.backgroundColor = QColor::fromRgbF(float(white), float(white), float(white), 1.f);
                            image->setSpec(imageSpec);
                            image->setGeometry(layout.imageRect().toAlignedRect());
                            auto *label = new VXTitleSubtitleLabel(tileView);
                            label->setDiagnosticsEnabled(_isRecordingDiagnostics);
                            label->setSpec(featureSpec.titleSubtitleSpecForContext(VXTitleContext::StoryletTile, tile.style, tile.size, {font}));
                            label->setTitleText(shown);
                            label->setSubtitleText(subtitle);
                            label->setGeometry(layout.titleRect().toAlignedRect());
                            matrix.setView(tileView, column, row);

                            if (_isRecordingDiagnostics && languageAndKey.size() == 2) {
                                label->layoutIfNeeded();
                                _recordedMatrix->setString(label->renderedLines().join(QStringLiteral(" ⏎")), languageAndKey[1], languageAndKey[0]);
                                lastRecordedKey = languageAndKey[1];
                            }
                        }
                        ++row;
                    }
        }
        ++column;
    }

    const QRect bounds = view()->rect();
    _setScrollView(matrix.createScrollViewWithFrame(QRectF(bounds.adjusted(0, kTopInset, 0, 0))));
    if (!lastRecordedKey.isEmpty()) {
        if (!_recordedImageCollage)
            _recordedImageCollage = std::make_unique<VUTesterImageCollage>();
        _recordedImageCollage->setImage(std::make_shared<const graphics::Image>(_snapshot()), lastRecordedKey);
    }
}

void VUTesterStoryletsFontsReviewViewController::_setScrollView(VUTesterViewMatrixScrollView *scrollView)
{
    if (scrollView == _scrollView)
        return;
    double zoom = 1.0;
    QPointF offset(0, 0);
    if (_scrollView) {
        zoom = _scrollView->zoomScale();
        offset = _scrollView->contentOffset();
        delete _scrollView;
    }
    _scrollView = scrollView;
    if (!scrollView)
        return;
    const QRect frame = scrollView->geometry();
    scrollView->setParent(view());
    scrollView->setGeometry(frame);
    scrollView->lower();
    scrollView->show();
    scrollView->setZoomScale(zoom, false);
    scrollView->setContentOffset(offset, false);
}

QImage VUTesterStoryletsFontsReviewViewController::_snapshot() const
{
    return _scrollView ? _scrollView->renderContent(Qt::white) : QImage();
}

QString VUTesterStoryletsFontsReviewViewController::_capturedDataFolder() const
{
    return VUTesterStoryletsRelatedSettings::sharedInstance()->capturedDataFolder();
}

int VUTesterStoryletsFontsReviewViewController::recordedSheetCount() const
{
    int count = 0;
    if (_recordedImageCollage)
        _recordedImageCollage->_enumerateImagesUsingBlock([&](const graphics::ImagePtr &) { ++count; });
    return count;
}

bool VUTesterStoryletsFontsReviewViewController::writeSnapshot(QString *path, QString *error)
{
    const QString folder = _capturedDataFolder();
    if (!prepareFolder(folder, error))
        return false;
    const QImage image = _snapshot();
    if (image.isNull()) {
        *error = QStringLiteral("the sheet is empty");
        return false;
    }
    const QDir dir(folder);
    int index = 0;
    while (QFileInfo::exists(dir.filePath(QString::asprintf(qPrintable(kSnapshotFileNameFormat), index))))
        ++index;
    *path = dir.filePath(QString::asprintf(qPrintable(kSnapshotFileNameFormat), index));
    return writePng(image, *path, error);
}

void VUTesterStoryletsFontsReviewViewController::startRecording()
{
    _isRecordingDiagnostics = true;
    _recordedMatrix = std::make_unique<VUTesterStringMatrix>();
    _recordedImageCollage.reset();
    _updateTileViews();
}

bool VUTesterStoryletsFontsReviewViewController::stopRecording(QString *error)
{
    _isRecordingDiagnostics = false;
    const std::unique_ptr<VUTesterStringMatrix> matrix = std::move(_recordedMatrix);
    const std::unique_ptr<VUTesterImageCollage> collage = std::move(_recordedImageCollage);
    const QString folder = _capturedDataFolder();
    if (!prepareFolder(folder, error))
        return false;
    const QDir dir(folder);
    if (collage) {
        // The collage is as wide as its sheets side by side and as high as the highest.
        qint64 width = -10, height = 0;
        collage->_enumerateImagesUsingBlock([&](const graphics::ImagePtr &image) {
            width += qint64(image->size().width()) + 10;
            height = std::max(height, qint64(image->size().height()));
        });
        if (width * height > kMaximumCollagePixels) {
            *error = QStringLiteral("the collage would be %1 × %2 pixels, more than %3 megapixels; review fewer fonts, tile kinds or form factors")
                         .arg(width).arg(height).arg(kMaximumCollagePixels / 1000000);
            return false;
        }
        const graphics::ImagePtr image = collage->collageImage();
        if (!image || !writePng(image->pixels(), dir.filePath(kRecordingImageFileName), error))
            return image ? false : (*error = QStringLiteral("couldn't compose the collage"), false);
    }
    return (matrix ? *matrix : VUTesterStringMatrix()).writeToFile(dir.filePath(kRecordingTextFileName), error);
}

void VUTesterStoryletsFontsReviewViewController::showResult(const QString &title, const QString &message)
{
    auto *alert = new ui::AlertController(title, message);
    alert->addAction({QStringLiteral("OK"), ui::AlertAction::Style::Default, {}});
    presentViewController(alert, true);
}

void VUTesterStoryletsFontsReviewViewController::takeSnapshot()
{
    QString path, error;
    if (writeSnapshot(&path, &error))
        showResult(QStringLiteral("Snapshot Saved"), path);
    else
        showResult(QStringLiteral("Snapshot Save Failed"), error);
}

void VUTesterStoryletsFontsReviewViewController::toggleRecording()
{
    if (!_isRecordingDiagnostics) {
        startRecording();
        auto *alert = new ui::AlertController(QStringLiteral("Starting Recording…"), QString());
        QPointer<ui::AlertController> shown = alert;
        presentViewController(alert, true, [this, shown] {
            ui::Settle::after(std::chrono::seconds(1), shown, [shown] {
                if (shown)
                    shown->dismissViewControllerAnimated(true);
            }, QStringLiteral("the recording's opening alert"));
        });
        return;
    }
    QString error;
    if (stopRecording(&error))
        showResult(QStringLiteral("Recording Saved"), _capturedDataFolder());
    else
        showResult(QStringLiteral("Recording Save Failed"), error);
}

void VUTesterStoryletsFontsReviewViewController::_handleSnapshotGesture(ui::GestureRecognizer *recognizer)
{
    if (recognizer->state() == ui::GestureRecognizer::State::Ended)
        takeSnapshot();
}

void VUTesterStoryletsFontsReviewViewController::_handleRecordingGesture(ui::GestureRecognizer *recognizer)
{
    if (recognizer->state() == ui::GestureRecognizer::State::Ended)
        toggleRecording();
}

void VUTesterStoryletsFontsReviewViewController::_handleDoneItem()
{
    dismissViewControllerAnimated(true);
}
