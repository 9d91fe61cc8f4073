#pragma once
// The fonts review: real Storylet title tiles for every combination the six parameters walk,
// fonts as columns and, as rows, every title by form factor, orientation and tile kind, in a
// sheet that zooms. A snapshot saves the sheet as the next numbered PNG in the captured-data
// folder; a recording keeps, for every graph string shown while it runs, the lines its title broke
// into, and a picture of each sheet, and writes both when it stops.
//
// Gestures: a two-finger double tap starts and stops a recording, a three-finger tap takes a
// snapshot. Desktops have the same as buttons and as Ctrl+R and Ctrl+S.

#include "shell/VUTesterExport.h"
#include "layout/VXObservable.h"
#include "review/VUTesterViewMatrixScrollView.h"
#include "ui/ViewController.h"

#include <QImage>
#include <QPointer>

#include <memory>
#include <vector>

class VUTesterImageCollage;
class VUTesterSettingParameter;
class VUTesterStoryletsRelatedSettings;
class VUTesterStringMatrix;
namespace ui {
class GestureRecognizer;
}

// The context the review observes its trait collection with.
VUTESTER_EXPORT extern void *const VUTesterExtendedTraitCollectionObservationContext;

class VUTESTER_EXPORT VUTesterStoryletsFontsReviewViewController : public ui::ViewController, public VXChangeObserver {
    Q_OBJECT
public:
    static const QString kSnapshotFileNameFormat;  // "VUTesterStoryletsFontsReview-%03i.png"
    static const QString kRecordingImageFileName;  // "VUTesterStoryletsFontsReview.png"
    static const QString kRecordingTextFileName;   // "VUTesterStoryletsFontsReview.txt"
    // A recording's collage larger than this many pixels is refused rather than drawn.
    static constexpr qint64 kMaximumCollagePixels = 256LL * 1000 * 1000;

    explicit VUTesterStoryletsFontsReviewViewController(QObject *parent = nullptr);
    // A font's column title: its first eight characters and "…", then " (missing)" when no
    // installed font has that name.
    static QString columnTitleForFont(const QString &font);
    ~VUTesterStoryletsFontsReviewViewController() override;

    // The review's own copy of the shared settings, taken when the view loads.
    VUTesterStoryletsRelatedSettings *reviewSettings() const { return _settings; }
    VUTesterViewMatrixScrollView *scrollView() const { return _scrollView; }
    bool isRecordingDiagnostics() const { return _isRecordingDiagnostics; }
    const VUTesterStringMatrix *recordedMatrix() const { return _recordedMatrix.get(); }
    // How many sheets the recording has collected so far.
    int recordedSheetCount() const;

    void _updateTileViews();
    void _setScrollView(VUTesterViewMatrixScrollView *scrollView);
    // The sheet at scale 1 on the screen's white.
    QImage _snapshot() const;
    QString _capturedDataFolder() const;

    // Writes the next numbered snapshot; the path written, or false with the reason.
    bool writeSnapshot(QString *path, QString *error);
    // A new recording, recording the sheet as it is now.
    void startRecording();
    // Writes the collage and the table of lines; false with the reason (the recording ends either way).
    bool stopRecording(QString *error);

    void _handleSnapshotGesture(ui::GestureRecognizer *recognizer);
    void _handleRecordingGesture(ui::GestureRecognizer *recognizer);
    void _handleDoneItem();

    void didChange(VXObservable *observable, quint64 change, void *context) override;

protected:
    void viewDidLoad() override;

private:
    void takeSnapshot();
    void toggleRecording();
    void showResult(const QString &title, const QString &message);
    void installDesktopControls();

    VUTesterStoryletsRelatedSettings *_settings = nullptr;
    std::vector<std::unique_ptr<VUTesterSettingParameter>> _settingParameters;
    QPointer<VUTesterViewMatrixScrollView> _scrollView;
    bool _isRecordingDiagnostics = false;
    std::unique_ptr<VUTesterStringMatrix> _recordedMatrix;
    std::unique_ptr<VUTesterImageCollage> _recordedImageCollage;
    VXObservable *m_traits = nullptr;
};
