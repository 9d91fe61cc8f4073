#pragma once
// Views laid out in a grid of titled cells, then shown in a zoomable scroll view. Each cell is a
// title label over a view, either of which may be missing; a column is as wide as its widest cell,
// a row as high as its highest.

#include "shell/VUTesterExport.h"

#include <QMarginsF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <map>
#include <utility>

class QWidget;
class VUTesterViewMatrixScrollView;

class VUTESTER_EXPORT VUTesterViewMatrix {
public:
    VUTesterViewMatrix() = default;
    VUTesterViewMatrix(const VUTesterViewMatrix &) = delete;
    VUTesterViewMatrix &operator=(const VUTesterViewMatrix &) = delete;
    // Views never placed in a scroll view go with the matrix.
    ~VUTesterViewMatrix();

    // The matrix takes the view.
    void setView(QWidget *view, qint64 column, qint64 row);
    void setTitle(const QString &title, qint64 column, qint64 row);
    qint64 columns() const { return _columns; }
    qint64 rows() const { return _rows; }

    QSizeF interCellSpacing() const { return m_interCellSpacing; }
    void setInterCellSpacing(QSizeF spacing) { m_interCellSpacing = spacing; }
    // Around all cells: left, top, right, bottom.
    QMarginsF padding() const { return m_padding; }
    void setPadding(const QMarginsF &padding) { m_padding = padding; }

    // Lays every cell out into a new scroll view of `frame`, which takes the views.
    VUTesterViewMatrixScrollView *createScrollViewWithFrame(const QRectF &frame);

private:
    using Cell = std::pair<qint64, qint64>; // row, column
    qint64 _columns = 0;
    qint64 _rows = 0;
    std::map<Cell, QWidget *> _views;
    std::map<Cell, QString> _titles;
    const double _titleBottomPadding = 5.0;
    QSizeF m_interCellSpacing{0, 0};
    QMarginsF m_padding{0, 0, 0, 0};
};
