#include "VXGadgetCells.h"

#include "ui/BackgroundColor.h"
#include "ui/CollectionViewFlowLayout.h"

#include <QCache>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

namespace {

constexpr int kPadding = 12;
constexpr int kTitleHeight = 24;
constexpr int kTileSide = 88;
constexpr int kBodyPointSize = 13;
const QString kTileIdentifier = QStringLiteral("Tile");

QFont bodyFont()
{
    QFont font;
    font.setPointSize(kBodyPointSize);
    return font;
}

// Pictures by seed and size, drawn once and kept while there is room, like a decoder's cache.
QImage pictureFor(quint32 seed, QSize size)
{
    static QCache<QString, QImage> cache(48);
    const QString key = QStringLiteral("%1/%2x%3").arg(seed).arg(size.width()).arg(size.height());
    if (QImage *cached = cache.object(key))
        return *cached;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    QRandomGenerator random(seed);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, QColor::fromHsv(random.bounded(360), 120, 240));
    sky.setColorAt(1, QColor::fromHsv(random.bounded(360), 160, 160));
    painter.fillRect(image.rect(), sky);
    for (int i = 0; i < 12; ++i) {
        painter.setBrush(QColor::fromHsv(random.bounded(360), 180, 230, 160));
        painter.setPen(Qt::NoPen);
        const double radius = 10 + random.bounded(size.height() / 3 + 1);
        painter.drawEllipse(QPointF(random.bounded(size.width() + 1), random.bounded(size.height() + 1)), radius, radius);
    }
    painter.end();
    cache.insert(key, new QImage(image));
    return image;
}

} // namespace

const QString VXGadgetCell::TextIdentifier = QStringLiteral("TextGadget");
const QString VXGadgetCell::ImageIdentifier = QStringLiteral("ImageGadget");
const QString VXGadgetCell::NestedRowIdentifier = QStringLiteral("NestedRowGadget");

QString VXGadgetCell::reuseIdentifierForKind(VXGadget::Kind kind)
{
    switch (kind) {
    case VXGadget::Kind::Text:
        return TextIdentifier;
    case VXGadget::Kind::Image:
        return ImageIdentifier;
    case VXGadget::Kind::NestedRow:
        return NestedRowIdentifier;
    }
    return TextIdentifier;
}

double VXGadgetCell::heightForGadget(const VXGadget &gadget, double width)
{
    const int inner = std::max(1, int(width) - 2 * kPadding);
    switch (gadget.kind) {
    case VXGadget::Kind::Text: {
        const QRect text = QFontMetrics(bodyFont()).boundingRect(QRect(0, 0, inner, 100000), Qt::TextWordWrap, gadget.body);
        return kPadding + kTitleHeight + text.height() + kPadding;
    }
    case VXGadget::Kind::Image:
        return kPadding + kTitleHeight + std::round(inner * 9.0 / 16.0) + kPadding;
    case VXGadget::Kind::NestedRow:
        return kPadding + kTitleHeight + kTileSide + kPadding;
    }
    return 0;
}

VXGadgetCell::VXGadgetCell()
{
    m_title = new QLabel(contentView());
    QFont font = m_title->font();
    font.setBold(true);
    m_title->setFont(font);
    m_title->move(kPadding, kPadding);
}

void VXGadgetCell::configure(const VXGadget &gadget)
{
    m_title->setText(gadget.title);
}

void VXGadgetCell::resizeEvent(QResizeEvent *event)
{
    ui::CollectionViewCell::resizeEvent(event);
    m_title->resize(std::max(0, width() - 2 * kPadding), kTitleHeight);
}

void VXGadgetCell::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0, 0, 0, 30));
    painter.setBrush(QColor(248, 248, 250));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 12, 12);
}

VXGadgetTextCell::VXGadgetTextCell()
{
    m_body = new QLabel(contentView());
    m_body->setFont(bodyFont());
    m_body->setWordWrap(true);
    m_body->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void VXGadgetTextCell::configure(const VXGadget &gadget)
{
    VXGadgetCell::configure(gadget);
    m_body->setText(gadget.body);
}

void VXGadgetTextCell::resizeEvent(QResizeEvent *event)
{
    VXGadgetCell::resizeEvent(event);
    m_body->setGeometry(kPadding, kPadding + kTitleHeight, std::max(0, width() - 2 * kPadding), std::max(0, height() - 2 * kPadding - kTitleHeight));
}

VXGadgetImageCell::VXGadgetImageCell() = default;

void VXGadgetImageCell::configure(const VXGadget &gadget)
{
    VXGadgetCell::configure(gadget);
    m_seed = gadget.seed;
    m_hasPicture = true;
    update();
}

void VXGadgetImageCell::prepareForReuse()
{
    m_hasPicture = false;
}

void VXGadgetImageCell::paintEvent(QPaintEvent *event)
{
    VXGadgetCell::paintEvent(event);
    if (!m_hasPicture)
        return;
    const QRect frame(kPadding, kPadding + kTitleHeight, width() - 2 * kPadding, height() - 2 * kPadding - kTitleHeight);
    if (frame.isEmpty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath clip;
    clip.addRoundedRect(frame, 8, 8);
    painter.setClipPath(clip);
    painter.drawImage(frame.topLeft(), pictureFor(m_seed, frame.size()));
}

VXGadgetNestedRowCell::VXGadgetNestedRowCell()
{
    auto *layout = new ui::CollectionViewFlowLayout;
    layout->setScrollDirection(ui::CollectionViewFlowLayout::ScrollDirection::Horizontal);
    layout->setItemSize(QSizeF(kTileSide, kTileSide));
    layout->setMinimumLineSpacing(8);
    layout->setMinimumInteritemSpacing(8);
    m_row = new ui::CollectionView(layout, contentView());
    m_row->registerCellClass<ui::CollectionViewCell>(kTileIdentifier);
    m_row->setDataSource(this);
    m_row->setShowsHorizontalScrollIndicator(false);
}

void VXGadgetNestedRowCell::configure(const VXGadget &gadget)
{
    VXGadgetCell::configure(gadget);
    m_seed = gadget.seed;
    m_count = gadget.nestedItemCount;
    m_row->reloadData();
    m_row->setContentOffset(QPointF(0, 0));
}

void VXGadgetNestedRowCell::resizeEvent(QResizeEvent *event)
{
    VXGadgetCell::resizeEvent(event);
    m_row->setGeometry(kPadding, kPadding + kTitleHeight, std::max(0, width() - 2 * kPadding), kTileSide);
}

ui::CollectionViewCell *VXGadgetNestedRowCell::cellForItemAtIndexPath(ui::CollectionView *collectionView, const ui::IndexPath &indexPath)
{
    ui::CollectionViewCell *cell = collectionView->dequeueReusableCellWithReuseIdentifier(kTileIdentifier, indexPath);
    const int hue = int((m_seed + quint32(indexPath.item()) * 37u) % 360u);
    ui::setBackgroundColor(cell->contentView(), QColor::fromHsv(hue, 140, 235));
    return cell;
}
