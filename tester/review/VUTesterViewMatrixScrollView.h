#pragma once
// The scroll view of a view matrix: its content view holds the laid-out cells and is what zooms
// (down to nothing, up to natural size). A double tap zooms out to half size, and back.
//
// The cells live in a sheet that is never put on screen: the content view paints it scaled to the
// zoom, so zoomed text is drawn at its zoomed size rather than scaled as a picture.

#include "shell/VUTesterExport.h"
#include "ui/ScrollView.h"

#include <QImage>

namespace ui {
class GestureRecognizer;
class TapGestureRecognizer;
}

class VUTESTER_EXPORT VUTesterViewMatrixScrollView : public ui::ScrollView, private ui::ScrollViewDelegate {
    Q_OBJECT
public:
    explicit VUTesterViewMatrixScrollView(QWidget *parent = nullptr);
    ~VUTesterViewMatrixScrollView() override;

    // The view that zooms (inside the scroll view's container, ui::ScrollView::contentView()).
    QWidget *contentView() const { return m_zoomingView; }
    // The cells at natural size; their parent while the scroll view lives.
    QWidget *sheet() const { return m_sheet; }
    // The size of the content at zoom scale 1.
    QSizeF naturalContentSize() const { return m_naturalSize; }
    // Gives the content view its natural frame and the scroll view its content size.
    void setNaturalContentFrame(const QRectF &frame);
    // The sheet at scale 1 on `background` (none: transparent), the size of the content.
    QImage renderContent(const QColor &background = QColor()) const;

    ui::TapGestureRecognizer *doubleTapGestureRecognizer() const { return m_doubleTap; }
    void _handleDoubleTap(ui::GestureRecognizer *recognizer);

private:
    QWidget *viewForZooming(ui::ScrollView *scrollView) override;

    QWidget *m_zoomingView;
    QWidget *m_sheet;
    QSizeF m_naturalSize;
    ui::TapGestureRecognizer *m_doubleTap;
};
