#include "layouts/VUTesterLayoutGeneratorOutputView.h"

#include "layout/VXExploreLayoutGenerator.h"
#include "ui/GestureRecognizer.h"
#include "ui/Geometry.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include <cmath>
#include <map>

namespace {

// Identifies this view's observation of its input manager.
int kInputManagerObservationContext;
// The building-block overlay draws at most this many rows, however tall the content: one view of
// a strip may hold thousands of blocks.
constexpr qint64 kMaximumGridRows = 10;
constexpr double kCornerMarkSize = 5.0;
constexpr int kTitlePixelSize = 17;
// Below this height on screen a title is not legible; such boxes are drawn without it.
constexpr double kMinimumTitleHeight = 4.0;

// Half-open, as a point on the shared edge of two boxes belongs to the later one.
bool containsPoint(const QRectF &rect, QPointF point)
{
    return point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() && point.y() < rect.bottom();
}

} // namespace

VUTesterLayoutGeneratorOutputView::VUTesterLayoutGeneratorOutputView(const QRectF &frame, QWidget *parent)
    : QWidget(parent), m_frame(frame), m_contentBounds(bounds()), m_drawnBounds(bounds())
{
    updateWidgetGeometry();
}

VUTesterLayoutGeneratorOutputView::~VUTesterLayoutGeneratorOutputView()
{
    if (m_inputManager)
        m_inputManager->unregisterChangeObserver(this, &kInputManagerObservationContext);
}

void VUTesterLayoutGeneratorOutputView::setInputManager(std::shared_ptr<VUTesterLayoutInputManager> inputManager)
{
    if (inputManager == m_inputManager)
        return;
    if (m_inputManager)
        m_inputManager->unregisterChangeObserver(this, &kInputManagerObservationContext);
    m_inputManager = std::move(inputManager);
    if (m_inputManager)
        m_inputManager->registerChangeObserver(this, &kInputManagerObservationContext);
    _inputDidChange();
}

void VUTesterLayoutGeneratorOutputView::setNumberOfItems(qint64 count)
{
    if (count == m_numberOfItems)
        return;
    m_numberOfItems = count;
    setNeedsLayout();
}

void VUTesterLayoutGeneratorOutputView::setFrame(const QRectF &frame)
{
    if (frame == m_frame)
        return;
    const bool resized = frame.size() != m_frame.size();
    m_frame = frame;
    updateWidgetGeometry();
    if (resized)
        setNeedsLayout();
}

void VUTesterLayoutGeneratorOutputView::setDrawingScale(double scale)
{
    if (scale == m_drawingScale || !(scale > 0))
        return;
    m_drawingScale = scale;
    updateWidgetGeometry();
    update();
}

void VUTesterLayoutGeneratorOutputView::updateWidgetGeometry()
{
    const QRectF drawn(m_drawnBounds.topLeft() + m_frame.topLeft(), m_drawnBounds.size());
    const QRectF scaled(drawn.topLeft() * m_drawingScale, drawn.size() * m_drawingScale);
    // At least one pixel, so the view keeps a place among its siblings.
    QRect rect = ui::pixelRect(scaled);
    rect.setWidth(std::max(rect.width(), 1));
    rect.setHeight(std::max(rect.height(), 1));
    setGeometry(rect);
}

QPointF VUTesterLayoutGeneratorOutputView::pointFromWidget(QPointF point) const
{
    return (point + QPointF(geometry().topLeft())) / m_drawingScale - m_frame.topLeft();
}

void VUTesterLayoutGeneratorOutputView::didChange(VXObservable *, quint64 change, void *context)
{
    if (context != &kInputManagerObservationContext)
        qFatal("VUTesterLayoutGeneratorOutputView: change observed with an unknown context %p", context);
    if (change & VUTesterLayoutInputManager::LayoutInputChange)
        _inputDidChange();
}

void VUTesterLayoutGeneratorOutputView::_inputDidChange()
{
    setNeedsLayout();
}

void VUTesterLayoutGeneratorOutputView::setNeedsLayout()
{
    m_needsLayout = true;
    if (m_layoutRequested)
        return;
    m_layoutRequested = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void VUTesterLayoutGeneratorOutputView::layoutIfNeeded()
{
    if (!std::exchange(m_needsLayout, false))
        return;
    layoutSubviews();
}

bool VUTesterLayoutGeneratorOutputView::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest) {
        m_layoutRequested = false;
        layoutIfNeeded();
    }
    return QWidget::event(event);
}

VUTesterLayoutGeneratorOutputView::Label *VUTesterLayoutGeneratorOutputView::dequeueLabel()
{
    if (m_reusableLabels.empty()) {
        m_labels.push_back(std::make_unique<Label>());
        return m_labels.back().get();
    }
    Label *label = m_reusableLabels.back();
    m_reusableLabels.pop_back();
    label->hidden = false;
    return label;
}

void VUTesterLayoutGeneratorOutputView::addBox(const QRectF &frame, const QColor &fill, const QColor &border, double borderWidth)
{
    m_boxes.push_back({frame, fill, border, borderWidth});
}

void VUTesterLayoutGeneratorOutputView::layoutSubviews()
{
    for (Label *label : m_outputViews) {
        label->hidden = true;
        m_reusableLabels.push_back(label);
    }
    m_outputViews.clear();
    m_boxes.clear();
    m_contentBounds = bounds();
    m_drawnBounds = bounds();
    if (m_inputManager && m_layoutGeneratorFactory) {
        // "Key Item" counts from 1; 0, or a number past the items, is no key item.
        const qint64 keyItem = m_settings ? m_settings->keyItemIndex() : 0;
        const std::shared_ptr<VXLayoutGenerator> generator = m_layoutGeneratorFactory(bounds().size());
        generator->setItemCount(m_numberOfItems);
        generator->setKeyItemIndex(keyItem >= 1 && keyItem <= m_numberOfItems ? keyItem - 1 : VXNotFound);
        const std::shared_ptr<const VUTesterLayoutInput> input = m_inputManager->layoutInput();
        generator->setItemLayoutInfoBlock([input](qint64 index) { return input->itemAtIndex(index); });

        const qint64 count = generator->numberOfGeometriesWithKind(VXLayoutGeometryKindItem);
        std::vector<VXLayoutGeometry> geometries(static_cast<size_t>(count));
        generator->getGeometries(geometries.data(), {0, count}, VXLayoutGeometryKindItem);
        for (qint64 i = 0; i < count; ++i) {
            Label *label = dequeueLabel();
            label->frame = geometries[size_t(i)].frame();
            label->backgroundColor = input->colorForItemAtIndex(i).toQColor();
            label->text = input->titleForItemAtIndex(i);
            m_contentBounds = m_contentBounds.united(label->frame);
            m_outputViews.push_back(label);
        }
        m_drawnBounds = m_contentBounds;

        if (m_settings && m_settings->showsReferenceSize())
            addBox(QRectF(QPointF(), generator->metrics().referenceSize), Qt::transparent, graphics::Color::green().toQColor(), 1.0);
        if (m_settings && m_settings->showsCorners()) {
            const VXLayoutGenerator::CornerSpriteIndexes corners = generator->cornerSpriteIndexes();
            for (int corner = VXLayoutGenerator::TopLeft; corner <= VXLayoutGenerator::BottomRight; ++corner) {
                const quint32 index = corners[size_t(corner)];
                if (index == VXNoCornerSprite || qint64(index) >= count)
                    continue;
                const QRectF frame = geometries[index].frame();
                const QPointF point(corner == VXLayoutGenerator::TopLeft || corner == VXLayoutGenerator::BottomLeft ? frame.left() : frame.right(),
                                    corner == VXLayoutGenerator::TopLeft || corner == VXLayoutGenerator::TopRight ? frame.top() : frame.bottom());
                const double half = kCornerMarkSize * 0.5;
                addBox(QRectF(point - QPointF(half, half), QSizeF(kCornerMarkSize, kCornerMarkSize)), graphics::Color::red().toQColor());
            }
        }
        const auto *explore = dynamic_cast<const VXExploreLayoutGenerator *>(generator.get());
        if (m_settings && m_settings->showsBuildingBlockSize() && explore) {
            const QSizeF block = explore->buildingBlockSize();
            const double spacing = generator->metrics().interitemSpacing;
            const QSizeF content = generator->size();
            if (block.width() + spacing > 0 && block.height() + spacing > 0) {
                const auto columns = qint64(ui::roundToPoint((content.width() + spacing) / (block.width() + spacing)));
                const auto rows = qint64(ui::roundToPoint((content.height() + spacing) / (block.height() + spacing)));
                QColor fill = graphics::Color::green().toQColor();
                fill.setAlphaF(0.33f);
                for (qint64 column = 0; column < columns; ++column)
                    for (qint64 row = 0; row < std::min(rows, kMaximumGridRows); ++row)
                        addBox(QRectF(column * (block.width() + spacing), row * (block.height() + spacing), block.width(), block.height()), fill);
            }
        }
        for (const Box &box : m_boxes)
            m_drawnBounds = m_drawnBounds.united(box.frame);
    }
    updateWidgetGeometry();
    update();
}

bool VUTesterLayoutGeneratorOutputView::handleTap(ui::GestureRecognizer *tap)
{
    if (!tap || tap->state() != ui::GestureRecognizer::State::Ended || !m_inputManager)
        return false;
    const QPointF location = pointFromWidget(tap->locationInView(this));
    for (size_t i = 0; i < m_outputViews.size(); ++i) {
        if (containsPoint(m_outputViews[i]->frame, location)) {
            m_inputManager->handleTapOnItemAtIndex(qint64(i));
            return true;
        }
    }
    return false;
}

void VUTesterLayoutGeneratorOutputView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    QTransform toWidget;
    toWidget.translate(-geometry().left(), -geometry().top());
    toWidget.scale(m_drawingScale, m_drawingScale);
    toWidget.translate(m_frame.left(), m_frame.top());
    const QRectF dirty = toWidget.inverted().mapRect(QRectF(event->rect()));

    painter.setTransform(toWidget);
    for (const Label *label : m_outputViews)
        if (label->frame.intersects(dirty))
            painter.fillRect(label->frame, label->backgroundColor);

    // Titles in widget pixels, so every title of one size shares its glyphs whatever the zoom.
    painter.resetTransform();
    painter.setPen(Qt::white);
    QFont font = this->font();
    font.setPixelSize(kTitlePixelSize);
    const QFontMetricsF metrics(font);
    std::map<int, QFont> fonts;
    for (const Label *label : m_outputViews) {
        if (!label->frame.intersects(dirty) || label->text.isEmpty())
            continue;
        const QRectF box = toWidget.mapRect(label->frame);
        if (box.height() < kMinimumTitleHeight)
            continue;
        // Shrunk to fit the box, never grown.
        const double fit = std::min({1.0, box.width() / metrics.horizontalAdvance(label->text), box.height() / metrics.height()});
        const int pixelSize = std::max(1, int(kTitlePixelSize * fit));
        auto found = fonts.find(pixelSize);
        if (found == fonts.end()) {
            QFont sized = font;
            sized.setPixelSize(pixelSize);
            found = fonts.emplace(pixelSize, sized).first;
        }
        painter.setFont(found->second);
        painter.drawText(box, Qt::AlignCenter, label->text);
    }

    painter.setTransform(toWidget);
    for (const Box &box : m_boxes) {
        if (!box.frame.intersects(dirty))
            continue;
        if (box.fillColor.alpha() > 0)
            painter.fillRect(box.frame, box.fillColor);
        if (box.borderWidth > 0) {
            // The border lies inside the frame, as a view's border does.
            const double inset = box.borderWidth * 0.5;
            painter.setPen(QPen(box.borderColor, box.borderWidth));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(box.frame.adjusted(inset, inset, -inset, -inset));
        }
    }
}
