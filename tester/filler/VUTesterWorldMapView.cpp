#include "filler/VUTesterWorldMapView.h"

#include "shell/VUTesterBundle.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

VUTesterWorldMapView::VUTesterWorldMapView(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(240, 120);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setCursor(Qt::CrossCursor);
    QFile file(vutester_VistraUITesterFrameworkBundle().pathForResource(QStringLiteral("maps/world.json")));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QJsonArray land = QJsonDocument::fromJson(file.readAll()).object().value(QStringLiteral("land")).toArray();
    for (const QJsonValue &outline : land) {
        QPolygonF polygon;
        for (const QJsonValue &point : outline.toArray())
            polygon << QPointF(point.toArray().at(0).toDouble(), point.toArray().at(1).toDouble());
        m_land.push_back(polygon);
    }
}

QRectF VUTesterWorldMapView::mapRect() const
{
    // The largest 2:1 rectangle centred in the widget.
    const double width = std::min<double>(this->width(), this->height() * 2.0);
    const double height = width / 2.0;
    return QRectF((this->width() - width) / 2.0, (this->height() - height) / 2.0, width, height);
}

QPointF VUTesterWorldMapView::pointForCoordinate(double latitude, double longitude) const
{
    const QRectF r = mapRect();
    return {r.left() + (longitude + 180.0) / 360.0 * r.width(), r.top() + (90.0 - latitude) / 180.0 * r.height()};
}

QPointF VUTesterWorldMapView::coordinateForPoint(const QPointF &point) const
{
    const QRectF r = mapRect();
    const double longitude = std::clamp((point.x() - r.left()) / r.width() * 360.0 - 180.0, -180.0, 180.0);
    const double latitude = std::clamp(90.0 - (point.y() - r.top()) / r.height() * 180.0, -90.0, 90.0);
    return {latitude, longitude};
}

void VUTesterWorldMapView::setMarker(std::optional<QPointF> latitudeLongitude)
{
    m_marker = latitudeLongitude;
    update();
}

void VUTesterWorldMapView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF r = mapRect();
    painter.fillRect(r, QColor(170, 205, 235));

    painter.setPen(QPen(QColor(120, 160, 100), 1));
    painter.setBrush(QColor(205, 225, 180));
    for (const QPolygonF &outline : m_land) {
        QPolygonF projected;
        for (const QPointF &p : outline)
            projected << pointForCoordinate(p.y(), p.x());
        painter.drawPolygon(projected);
    }

    painter.setPen(QPen(QColor(255, 255, 255, 140), 1, Qt::DotLine));
    for (int longitude = -150; longitude <= 150; longitude += 30)
        painter.drawLine(pointForCoordinate(90, longitude), pointForCoordinate(-90, longitude));
    for (int latitude = -60; latitude <= 60; latitude += 30)
        painter.drawLine(pointForCoordinate(latitude, -180), pointForCoordinate(latitude, 180));
    painter.setPen(QPen(QColor(255, 255, 255, 200), 1));
    painter.drawLine(pointForCoordinate(0, -180), pointForCoordinate(0, 180));

    if (m_marker) {
        const QPointF p = pointForCoordinate(m_marker->x(), m_marker->y());
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(QColor(220, 40, 40));
        painter.drawEllipse(p, 5, 5);
    }
}

void VUTesterWorldMapView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !mapRect().contains(event->position()))
        return;
    const QPointF coordinate = coordinateForPoint(event->position());
    setMarker(coordinate);
    Q_EMIT coordinatePicked(coordinate.x(), coordinate.y());
}
