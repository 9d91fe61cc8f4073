#include "LibraryBrowserWidget.h"

#include "LibraryThumbnailModel.h"

#include <photos/VHImageManager.h>
#include <photos/VHPhotoLibrary.h>
#include <views/VUDurationBadgeView.h>
#include <views/VUStirShotBadgeView.h>

#include <QEvent>
#include <QLabel>
#include <QListView>
#include <QLocale>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kMinimumCell = 96;
constexpr int kSpacing = 2;
// Changes arrive in bursts while the filler runs: refresh at most this often.
constexpr int kReloadDelayMs = 500;

// Every cell is a whole grid square, the thumbnail filling it (cropped to keep its aspect), so the
// grid stays even whatever the pictures' shapes and hit tests cover the whole cell.
class ThumbnailDelegate : public QStyledItemDelegate {
public:
    ThumbnailDelegate(QListView *view) : QStyledItemDelegate(view), m_view(view) {}

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override { return m_view->gridSize(); }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QRect cell = option.rect.adjusted(0, 0, -kSpacing, -kSpacing);
        painter->fillRect(cell, option.palette.midlight());
        const QPixmap pixmap = index.data(Qt::DecorationRole).value<QPixmap>();
        if (!pixmap.isNull()) {
            const QSizeF shown = QSizeF(pixmap.size()).scaled(cell.size(), Qt::KeepAspectRatioByExpanding);
            const QRectF target(cell.center().x() - shown.width() / 2 + 0.5, cell.center().y() - shown.height() / 2 + 0.5,
                                shown.width(), shown.height());
            painter->save();
            painter->setClipRect(cell);
            painter->setRenderHint(QPainter::SmoothPixmapTransform);
            painter->drawPixmap(target, pixmap, pixmap.rect());
            painter->restore();
        }
        const QString duration = index.data(LibraryThumbnailModel::DurationTextRole).toString();
        if (!duration.isEmpty())
            VUDurationBadgeView::paintDurationBadge(*painter, QRectF(cell), duration, Qt::white);
        if (index.data(LibraryThumbnailModel::StirShotRole).toBool())
            VUStirShotBadgeView::paintStirShotBadge(*painter, QPointF(cell.left() + 13, cell.top() + 13), VUStirShotBadgeView::kDefaultSize,
                                                    Qt::white);
        if (option.state & QStyle::State_Selected)
            painter->fillRect(cell, QColor(0, 120, 215, 90));
    }

private:
    QListView *m_view;
};

} // namespace

LibraryBrowserWidget::LibraryBrowserWidget(std::shared_ptr<VHPhotoLibrary> library, QWidget *parent,
                                           VHImageManager *imageManager)
    : QWidget(parent)
    , m_library(library ? std::move(library) : VHPhotoLibrary::sharedPhotoLibrary())
    , m_summary(new QLabel(this))
    , m_grid(new QListView(this))
    , m_reloadTimer(new QTimer(this))
{
    m_summary->setWordWrap(true);
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse);

    m_model = new LibraryThumbnailModel(m_library, imageManager ? imageManager : VHImageManager::defaultManager(), this);
    m_grid->setViewMode(QListView::IconMode);
    m_grid->setMovement(QListView::Static);
    m_grid->setResizeMode(QListView::Adjust);
    m_grid->setUniformItemSizes(true);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setSpacing(0);
    m_grid->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_grid->setItemDelegate(new ThumbnailDelegate(m_grid));
    m_grid->setModel(m_model);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_summary);
    layout->addWidget(m_grid, 1);

    m_reloadTimer->setSingleShot(true);
    m_reloadTimer->setInterval(kReloadDelayMs);
    connect(m_reloadTimer, &QTimer::timeout, this, &LibraryBrowserWidget::_reload);
    connect(m_library.get(), &VHPhotoLibrary::photoLibraryDidChange, m_reloadTimer,
            [this] {
                if (!m_reloadTimer->isActive())
                    m_reloadTimer->start();
            });
    connect(m_grid->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &LibraryBrowserWidget::_cancelInvisibleRequests);
    // The cells follow the grid's own width, which changes also when a hidden tab is first shown,
    // not only when this widget is resized. A scroll bar that came and went with the number of
    // rows would change that width again and again, so it stays.
    m_grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_grid->viewport()->installEventFilter(this);
    _updateCellSize();
    _updateSummary();
}

LibraryBrowserWidget::~LibraryBrowserWidget() = default;

bool LibraryBrowserWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_grid->viewport() && event->type() == QEvent::Resize)
        _updateCellSize();
    return QWidget::eventFilter(watched, event);
}

void LibraryBrowserWidget::_reload()
{
    const int scrolled = m_grid->verticalScrollBar()->value();
    m_model->reload();
    m_grid->verticalScrollBar()->setValue(scrolled);
    _updateSummary();
}

void LibraryBrowserWidget::_updateSummary()
{
    VHError error;
    if (!m_library->open(&error)) {
        m_summary->setText(error.debugDescription());
        return;
    }
    const int count = m_model->rowCount();
    m_summary->setText(count == 1 ? tr("1 asset in %1").arg(m_library->location())
                                  : tr("%1 assets in %2").arg(QLocale().toString(count), m_library->location()));
}

// As many whole columns as fit, each at least kMinimumCell wide, filling the width exactly.
void LibraryBrowserWidget::_updateCellSize()
{
    const int width = m_grid->viewport()->width() - 1;
    const int columns = std::max(1, width / (kMinimumCell + kSpacing));
    const int cell = std::max(kMinimumCell / 2, width / columns);
    const QSize grid(cell, cell);
    if (m_grid->gridSize() == grid)
        return;
    m_grid->setGridSize(grid);
    m_grid->setIconSize(grid - QSize(kSpacing, kSpacing));
    const qreal scale = devicePixelRatioF();
    m_model->setThumbnailSize((QSizeF(m_grid->iconSize()) * scale).toSize());
}

void LibraryBrowserWidget::_cancelInvisibleRequests()
{
    // Cells start at the left edge; the right and bottom edges may fall between or after cells.
    const QRect visible = m_grid->viewport()->rect();
    const QModelIndex first = m_grid->indexAt(QPoint(1, 1));
    const QModelIndex lastRow = m_grid->indexAt(QPoint(1, visible.height() - 2));
    const int columns = std::max(1, visible.width() / std::max(1, m_grid->gridSize().width()));
    const int last = lastRow.isValid() ? lastRow.row() + columns - 1 : m_model->rowCount() - 1;
    m_model->cancelRequestsOutside(first.isValid() ? first.row() : 0, last);
}
