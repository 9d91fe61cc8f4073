#include "review/VUTesterViewMatrix.h"

#include "review/VUTesterViewMatrixScrollView.h"

#include <QLabel>

#include <algorithm>
#include <memory>
#include <vector>

VUTesterViewMatrix::~VUTesterViewMatrix()
{
    for (auto &[cell, view] : _views)
        delete view;
}

void VUTesterViewMatrix::setView(QWidget *view, qint64 column, qint64 row)
{
    QWidget *&slot = _views[{row, column}];
    if (slot != view)
        delete slot;
    slot = view;
    _columns = std::max(_columns, column + 1);
    _rows = std::max(_rows, row + 1);
}

void VUTesterViewMatrix::setTitle(const QString &title, qint64 column, qint64 row)
{
    _titles[{row, column}] = title;
    _columns = std::max(_columns, column + 1);
    _rows = std::max(_rows, row + 1);
}

VUTesterViewMatrixScrollView *VUTesterViewMatrix::createScrollViewWithFrame(const QRectF &frame)
{
    auto *scrollView = new VUTesterViewMatrixScrollView;
    QWidget *sheet = scrollView->sheet();

    // Labels sized to their text, for the titles that say something.
    std::map<Cell, QLabel *> labels;
    for (const auto &[cell, title] : _titles) {
        if (title.isEmpty())
            continue;
        auto *label = new QLabel(title, sheet);
        label->adjustSize();
        labels[cell] = label;
    }

    // Column widths and row heights: the largest cell of each, kept at single precision.
    std::vector<float> columnWidths(size_t(_columns), 0.f), rowHeights(size_t(_rows), 0.f);
    for (qint64 row = 0; row < _rows; ++row)
        for (qint64 column = 0; column < _columns; ++column) {
            const auto view = _views.find({row, column});
            const QSizeF viewSize = view != _views.end() && view->second ? QSizeF(view->second->size()) : QSizeF(0, 0);
            double width = viewSize.width(), height = viewSize.height();
            if (const auto label = labels.find({row, column}); label != labels.end()) {
                const QSizeF labelSize = label->second->size();
                width = std::max(labelSize.width(), viewSize.width());
                height = viewSize.height() + (viewSize.height() > 0 ? _titleBottomPadding : 0) + labelSize.height();
            }
            columnWidths[size_t(column)] = std::max(columnWidths[size_t(column)], float(width));
            rowHeights[size_t(row)] = std::max(rowHeights[size_t(row)], float(height));
        }

    scrollView->setGeometry(frame.toAlignedRect());
    // The content rectangle starts as the empty rectangle at the origin and takes in every item.
    double left = 0, top = 0, right = 0, bottom = 0;
    const auto place = [&](QWidget *item, QPointF at) {
        item->setParent(sheet);
        item->move(at.toPoint());
        item->show();
        const QRectF r(at, QSizeF(item->size()));
        left = std::min(left, r.left());
        top = std::min(top, r.top());
        right = std::max(right, r.right());
        bottom = std::max(bottom, r.bottom());
    };
    double y = m_padding.top();
    for (qint64 row = 0; row < _rows; ++row) {
        double x = m_padding.left();
        for (qint64 column = 0; column < _columns; ++column) {
            QPointF cursor(x, y);
            if (const auto label = labels.find({row, column}); label != labels.end()) {
                place(label->second, cursor);
                cursor.setY(cursor.y() + label->second->height() + _titleBottomPadding);
            }
            if (const auto view = _views.find({row, column}); view != _views.end() && view->second) {
                place(view->second, cursor);
                view->second = nullptr; // the scroll view has it now
            }
            x += columnWidths[size_t(column)] + m_interCellSpacing.width();
        }
        y += rowHeights[size_t(row)] + m_interCellSpacing.height();
    }
    const QRectF content(left, top, right - left + m_padding.right(), bottom - top + m_padding.bottom());
    scrollView->setNaturalContentFrame(content);
    return scrollView;
}
