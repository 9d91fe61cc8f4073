#pragma once
// One "Fill Library" run: walks the combinations of a settings snapshot, draws one test picture
// per asset (a running number, a time stamp, a distinct colour), writes it as a photo, a movie or
// a Stir Shot (a still paired with a short movie), and saves the files into the photo library or
// the file-backed debug directory. Assets are made one after another; the run can be cancelled
// between assets, and its completion is called exactly once.

#include "filler/VUTesterLibraryFillerSettingsValueCombinationEnumerator.h"
#include "media/VUTesterError.h"
#include "media/VUTesterImageGenerator.h"
#include "media/VUTesterLocation.h"

#include <graphics/Color.h>

#include <QSizeF>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

class VUTESTER_EXPORT VUTesterLibraryFillOperation : public std::enable_shared_from_this<VUTesterLibraryFillOperation> {
public:
    using CompletionHandler = std::function<void()>;
    using AssetCompletionHandler = std::function<void(bool success, const VUTesterOptionalError &error)>;

    // What became of one asset, for progress displays.
    struct AssetReport {
        qint64 index = 0; // 1-based
        qint64 count = 0;
        qint64 media = 0;
        QSizeF size;
        bool success = false;
        QString error;
        QString identifier; // the new asset's local identifier (library)
        QStringList files;  // where the files went (file-backed)
    };
    using AssetObserver = std::function<void(const AssetReport &report)>;

    // The enumerator takes its own copy of the settings now.
    static std::shared_ptr<VUTesterLibraryFillOperation> create(const VUTesterLibraryFillerSettings *settings);

    // Starts the run and returns at once; the completion runs on whichever queue finished the
    // last asset.
    void runWithCompletionHandler(CompletionHandler handler);
    // The asset in progress finishes; no further asset starts.
    void cancel();
    bool _isCanceled() const { return m_canceled.load(); }
    bool isRunning() const { return m_isRunning.load(); }
    // Fraction of assets finished, 0 to 1; safe to read from any thread.
    double progress() const { return m_progress.load(); }
    const VUTesterLibraryFillerSettingsValueCombinationEnumerator &enumerator() const { return *_settings; }
    // Told after every asset, on the queue that finished it.
    void setAssetObserver(AssetObserver observer) { m_observer = std::move(observer); }

    // The picture of one asset: content, time stamp and label, oriented. Public for benchmarks.
    graphics::ImagePtr _imageWithSize(QSizeF size, const graphics::Color &color, const QString &label, qint64 orientation) const;
    // The size of a photo for the current combination.
    QSizeF _assetSize() const;
    // The frame size of a movie for a requested size and image orientation: at most 1080 high in
    // its upright-as-encoded form, width a multiple of 16.
    static QSizeF videoFrameSize(QSizeF requested, qint64 imageOrientation);
    // Hue of the next asset: 50 distinct hues, then the cycle repeats.
    static graphics::Color _nextColor();

private:
    explicit VUTesterLibraryFillOperation(const VUTesterLibraryFillerSettings *settings);

    void _addNextAsset();
    void _addAssetWithCompletionHandler(AssetCompletionHandler completion);
    void _addPhotoWithSize(QSizeF size, AssetCompletionHandler completion);
    void _addVideoWithSize(QSizeF size, AssetCompletionHandler completion);
    void _addLiveVideoWithSize(QSizeF size, AssetCompletionHandler completion);
    // A movie writer for this asset: 3 seconds of its picture with a pulsing colour and a running
    // time label, turned for the orientation; a Stir Shot's (with a pairing identifier) runs at
    // 15 frames per second and leaves out the moment of the still.
    std::shared_ptr<class VUTesterVideoWriter> _movieWriter(QSizeF size, const graphics::Color &color, qint64 orientation,
                                                            const QString &pairingIdentifier);
    void _saveAssetWithImageURL(const QString &imageURL, const QString &videoURL, double imageDisplayTime, AssetCompletionHandler completion);
    void _saveToLibrary(const QString &imageURL, const QString &videoURL, double imageDisplayTime, AssetCompletionHandler completion);
    void _saveToFileBacked(const QString &imageURL, const QString &videoURL, AssetCompletionHandler completion);
    // The file-backed name the next asset will get, or an error when a file of an earlier fill
    // already has it: checked before the asset is drawn, which can take seconds.
    bool _checkNextFileBackedName(VUTesterOptionalError *error) const;
    std::optional<VUTesterLocation> currentLocation() const;
    void report(bool success, const VUTesterOptionalError &error);

    CompletionHandler _completionHandler;
    std::atomic<bool> m_isRunning{false};
    std::atomic<bool> m_canceled{false};
    std::atomic<double> m_progress{0.0};
    std::unique_ptr<VUTesterLibraryFillerSettingsValueCombinationEnumerator> _settings;
    qint64 _assetIndex = 0;

    AssetObserver m_observer;
    AssetReport m_current;
};

using VUTesterLibraryFillOperationPtr = std::shared_ptr<VUTesterLibraryFillOperation>;
