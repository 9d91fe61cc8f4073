#pragma once
// A table cell that shows one library object: its title (numbered by its row), subtitle, property
// lines and a thumbnail. Setting the object asks for a layout pass, which runs later, once the
// table has also set the index and count, and fills the labels and requests the thumbnail. A
// cell that is reused, or given another object, cancels the thumbnail it asked for, so a fast
// scroll never shows a stale picture. Each cell draws the separator below itself.

#include "diagnostics/VUTesterVistraKitObjectDiagnosticsContent.h"

#include "shell/VUTesterExport.h"

#include <photos/VHImageManager.h>

#include "ui/CollectionView.h"
#include "ui/Settle.h"

#include <memory>

class QLabel;
class VUAspectFitImageView;
namespace Ui {
class VUTesterVistraKitObjectDiagnosticsTableViewCell;
}

class VUTESTER_EXPORT VUTesterVistraKitObjectDiagnosticsTableViewCell : public ui::CollectionViewCell {
    Q_OBJECT
public:
    VUTesterVistraKitObjectDiagnosticsTableViewCell();
    ~VUTesterVistraKitObjectDiagnosticsTableViewCell() override;

    // The reuse identifier tables register the cell under.
    static QString identifier();
    // Makes cells laid out by the interface file named after the class.
    static ui::CollectionView::CellFactory nib();

    const VUTesterDiagnosticsObject &object() const { return m_object; }
    // Marks the cell for layout only when the object changes.
    void setObject(const VUTesterDiagnosticsObject &object);
    qint64 index() const { return m_index; }
    void setIndex(qint64 index) { m_index = index; }
    qint64 count() const { return m_count; }
    void setCount(qint64 count) { m_count = count; }

    QLabel *titleLabel() const;
    QLabel *subtitleLabel() const;
    QLabel *propertiesLabel() const;
    VUAspectFitImageView *thumbnailImageView() const;
    VHImageManager *imageManager() const { return m_imageManager; }
    const VUTesterDateFormatter &dateFormatter() const { return m_dateFormatter; }

    VHImageRequestID thumbnailImageRequestID() const { return m_thumbnailImageRequestID; }
    // A new identifier cancels the request of the old one.
    void setThumbnailImageRequestID(VHImageRequestID requestID);

    void prepareForReuse() override;
    // Runs the pending layout pass now.
    void layoutIfNeeded();
    // The height the cell needs for `content`, as laid out by its interface file.
    int heightForContent(const VUTesterVistraKitObjectDiagnosticsContent &content);

protected:
    bool event(QEvent *event) override;
    // A hairline along the bottom, from where the texts' margin starts.
    void paintEvent(QPaintEvent *event) override;

private:
    void _commonVUTesterVistraKitObjectDiagnosticsTableViewCellInit();
    void setNeedsLayout();
    void layoutSubviews();
    void showTexts(const VUTesterVistraKitObjectDiagnosticsContent &content);

    std::unique_ptr<Ui::VUTesterVistraKitObjectDiagnosticsTableViewCell> m_ui;
    VUTesterDiagnosticsObject m_object;
    qint64 m_index = VUTesterVistraKitObjectDiagnosticsContent::kNotFound;
    qint64 m_count = 0;
    VHImageManager *m_imageManager = nullptr;
    VUTesterDateFormatter m_dateFormatter;
    VHImageRequestID m_thumbnailImageRequestID = VHInvalidImageRequestID;
    bool m_needsLayout = false;
};
