#pragma once
// An offline world map: coarse land outlines shipped with the module, drawn in an equirectangular
// projection with a graticule. A click picks the latitude and longitude under it.

#include "shell/VUTesterExport.h"

#include <QPolygonF>
#include <QWidget>

#include <optional>
#include <vector>

class VUTESTER_EXPORT VUTesterWorldMapView : public QWidget {
    Q_OBJECT
public:
    explicit VUTesterWorldMapView(QWidget *parent = nullptr);

    // The marked place, or none.
    void setMarker(std::optional<QPointF> latitudeLongitude);
    std::optional<QPointF> marker() const { return m_marker; }

    // Projection between widget points and (latitude, longitude), for the map's current size.
    QPointF pointForCoordinate(double latitude, double longitude) const;
    QPointF coordinateForPoint(const QPointF &point) const;
    QRectF mapRect() const;

    QSize sizeHint() const override { return {360, 180}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return width / 2; }

Q_SIGNALS:
    // (latitude, longitude) of a click on the map.
    void coordinatePicked(double latitude, double longitude);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    std::vector<QPolygonF> m_land; // x: longitude, y: latitude
    std::optional<QPointF> m_marker;
};
