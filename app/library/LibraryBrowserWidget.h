#pragma once
// A window onto a photo library: a line saying what it holds and a virtualised thumbnail grid of
// its assets, oldest first. It follows the library as assets arrive.

#include <QWidget>

#include <memory>

class QLabel;
class QListView;
class QTimer;
class LibraryThumbnailModel;
class VHImageManager;
class VHPhotoLibrary;

class LibraryBrowserWidget : public QWidget {
    Q_OBJECT

public:
    // The shared library and the default image manager unless told otherwise.
    explicit LibraryBrowserWidget(std::shared_ptr<VHPhotoLibrary> library = nullptr, QWidget *parent = nullptr,
                                  VHImageManager *imageManager = nullptr);
    ~LibraryBrowserWidget() override;

    QListView *gridView() const { return m_grid; }
    LibraryThumbnailModel *thumbnailModel() const { return m_model; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void _reload();
    void _updateSummary();
    void _updateCellSize();
    void _cancelInvisibleRequests();

    std::shared_ptr<VHPhotoLibrary> m_library;
    QLabel *m_summary = nullptr;
    QListView *m_grid = nullptr;
    LibraryThumbnailModel *m_model = nullptr;
    QTimer *m_reloadTimer = nullptr;
};
