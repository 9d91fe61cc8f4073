#include "TWUISettingsCell.h"

#include "TWUISettingsAppearance.h"
#include "TWUISettingsSectionView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QResizeEvent>

#include <cmath>

namespace {

constexpr int kGap = 8;           // between the title, the value and the trailing items
constexpr int kChevronWidth = 8;
constexpr int kCheckmarkWidth = 14;
constexpr int kBottomPadding = 10; // under a control on its own line

// A control's height within its own bounds (a fixed height does not change the size hint).
int controlHeight(const QWidget *control)
{
    return qBound(control->minimumHeight(), control->sizeHint().height(), control->maximumHeight());
}

} // namespace

TWUISettingsCell::TWUISettingsCell(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TWUISettingsCell::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    m_title = title;
    setAccessibleName(title);
    updateLayout();
    update();
}

void TWUISettingsCell::setDetailText(const QString &text)
{
    if (text == m_detail)
        return;
    m_detail = text;
    setAccessibleDescription(text);
    update();
}

void TWUISettingsCell::setStyle(Style style)
{
    m_style = style;
    update();
}

void TWUISettingsCell::setAccessory(Accessory accessory)
{
    m_accessory = accessory;
    updateLayout();
    update();
}

void TWUISettingsCell::setTappable(bool tappable)
{
    m_tappable = tappable;
    // Keyboard focus only, so a click leaves no focus ring behind.
    setFocusPolicy(tappable ? Qt::TabFocus : Qt::NoFocus);
    setCursor(tappable ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void TWUISettingsCell::setTrailingControl(QWidget *control)
{
    replaceControl(&m_trailing, control);
}

void TWUISettingsCell::setBottomControl(QWidget *control)
{
    replaceControl(&m_bottom, control);
}

void TWUISettingsCell::replaceControl(QWidget **slot, QWidget *control)
{
    delete *slot;
    *slot = control;
    if (control)
        control->setParent(this);
    updateGeometry();
    updateLayout();
}

int TWUISettingsCell::accessoryWidth() const
{
    switch (m_accessory) {
    case Accessory::Chevron: return kChevronWidth + kGap;
    case Accessory::Checkmark: return kCheckmarkWidth + kGap;
    case Accessory::None: break;
    }
    return 0;
}

QSize TWUISettingsCell::sizeHint() const
{
    int height = TWUISettingsAppearance::kRowHeight;
    if (m_trailing)
        height = std::max(height, controlHeight(m_trailing) + 12);
    if (m_bottom)
        height = titleBandHeight() + controlHeight(m_bottom) + kBottomPadding;
    return {240, height};
}

QSize TWUISettingsCell::minimumSizeHint() const
{
    return {120, sizeHint().height()};
}

void TWUISettingsCell::updateLayout()
{
    const int margin = TWUISettingsAppearance::kMargin;
    const int band = titleBandHeight();
    if (m_trailing) {
        const int right = width() - margin - accessoryWidth();
        int controlWidth = m_trailing->sizeHint().width();
        // A control that wants room (a text field) takes what the title leaves.
        if (m_trailing->sizePolicy().horizontalPolicy() & QSizePolicy::ExpandFlag) {
            const int titleWidth = QFontMetrics(TWUISettingsAppearance::rowFont(font())).horizontalAdvance(m_title);
            controlWidth = std::max(100, right - margin - titleWidth - 2 * kGap);
        }
        const int trailingHeight = std::min(controlHeight(m_trailing), band);
        m_trailing->setGeometry(right - controlWidth, (band - trailingHeight) / 2, controlWidth, trailingHeight);
    }
    if (m_bottom)
        m_bottom->setGeometry(margin, band, width() - 2 * margin, controlHeight(m_bottom));
}

int TWUISettingsCell::titleBandHeight() const
{
    return m_bottom ? TWUISettingsAppearance::kRowHeight - 8 : height();
}

void TWUISettingsCell::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    updateLayout();
}

void TWUISettingsCell::paintEvent(QPaintEvent *)
{
    const TWUISettingsAppearance appearance = TWUISettingsAppearance::forWidget(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_pressed) {
        painter.save();
        // Pressed rows darken within their section's rounded corners.
        if (auto *section = qobject_cast<TWUISettingsSectionCard *>(parentWidget()))
            painter.setClipPath(section->backgroundPath().translated(-pos()));
        painter.fillRect(rect(), appearance.pressedCell);
        painter.restore();
    }

    const int margin = TWUISettingsAppearance::kMargin;
    const int band = titleBandHeight();
    const QRect line(margin, 0, width() - 2 * margin, band);
    int right = line.right() + 1;

    switch (m_accessory) {
    case Accessory::Chevron: {
        const QPointF tip(right - 1.5, band / 2.0);
        QPainterPath chevron;
        chevron.moveTo(tip + QPointF(-kChevronWidth + 2.5, -6.5));
        chevron.lineTo(tip);
        chevron.lineTo(tip + QPointF(-kChevronWidth + 2.5, 6.5));
        painter.setPen(QPen(appearance.chevron, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(chevron);
        right -= kChevronWidth + kGap;
        break;
    }
    case Accessory::Checkmark: {
        const double y = band / 2.0;
        QPainterPath check;
        check.moveTo(right - kCheckmarkWidth, y);
        check.lineTo(right - kCheckmarkWidth + 5, y + 5);
        check.lineTo(right, y - 6);
        painter.setPen(QPen(appearance.accent, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(check);
        right -= kCheckmarkWidth + kGap;
        break;
    }
    case Accessory::None:
        break;
    }
    if (m_trailing)
        right = m_trailing->geometry().left() - kGap;

    const QFont font = TWUISettingsAppearance::rowFont(this->font());
    painter.setFont(font);
    const QFontMetrics metrics(font);
    // The title keeps its room first; the value takes what is left and is shortened if need be.
    const int titleWidth = std::min(int(std::ceil(QFontMetricsF(font).horizontalAdvance(m_title))), right - line.left());
    const QColor titleColour = m_style == Style::Button ? appearance.accent : m_style == Style::Inert ? appearance.secondaryLabel : appearance.label;
    painter.setPen(titleColour);
    painter.drawText(QRect(line.left(), 0, titleWidth, band), Qt::AlignLeft | Qt::AlignVCenter,
                     metrics.elidedText(m_title, Qt::ElideRight, titleWidth));
    if (!m_detail.isEmpty()) {
        const int detailLeft = line.left() + titleWidth + 2 * kGap;
        const int detailWidth = right - detailLeft;
        if (detailWidth > metrics.horizontalAdvance(QStringLiteral("…"))) {
            painter.setPen(appearance.secondaryLabel);
            painter.drawText(QRect(detailLeft, 0, detailWidth, band), Qt::AlignRight | Qt::AlignVCenter,
                             metrics.elidedText(m_detail, Qt::ElideRight, detailWidth));
        }
    }
    if (hasFocus()) {
        painter.setPen(QPen(appearance.accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 6, 6);
    }
}

void TWUISettingsCell::mousePressEvent(QMouseEvent *event)
{
    if (!m_tappable || event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    m_pressed = true;
    update();
}

void TWUISettingsCell::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_tappable)
        return;
    const bool inside = rect().contains(event->position().toPoint());
    if (inside != m_pressed) {
        m_pressed = inside;
        update();
    }
}

void TWUISettingsCell::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_tappable || event->button() != Qt::LeftButton) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    const bool tap = m_pressed && rect().contains(event->position().toPoint());
    m_pressed = false;
    update();
    if (tap)
        Q_EMIT tapped();
}

void TWUISettingsCell::keyPressEvent(QKeyEvent *event)
{
    if (m_tappable && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)) {
        Q_EMIT tapped();
        return;
    }
    QWidget::keyPressEvent(event);
}

void TWUISettingsCell::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateLayout();
}
