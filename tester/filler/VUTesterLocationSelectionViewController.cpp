#include "filler/VUTesterLocationSelectionViewController.h"

#include "filler/VUTesterWorldMapView.h"
#include "settings/TWSettings.h"
#include "shell/VUTesterBundle.h"

#include <QFile>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

VUTesterLocationSelectionViewController::VUTesterLocationSelectionViewController(const QVariant &location, VUTesterLocationSelectorDelegate *delegate)
    : m_location(location), m_delegate(delegate)
{
    setTitle(QStringLiteral("Location"));
}

QList<VUTesterLocationSelectionViewController::Place> VUTesterLocationSelectionViewController::places()
{
    QList<Place> result;
    QFile file(vutester_VistraUITesterFrameworkBundle().pathForResource(QStringLiteral("maps/world.json")));
    if (!file.open(QIODevice::ReadOnly))
        return result;
    for (const QJsonValue &value : QJsonDocument::fromJson(file.readAll()).object().value(QStringLiteral("places")).toArray()) {
        const QJsonObject place = value.toObject();
        result.append({place.value(QStringLiteral("name")).toString(), place.value(QStringLiteral("latitude")).toDouble(),
                       place.value(QStringLiteral("longitude")).toDouble()});
    }
    return result;
}

QWidget *VUTesterLocationSelectionViewController::loadView()
{
    auto *view = new QWidget;
    auto *column = new QVBoxLayout(view);

    m_map = new VUTesterWorldMapView;
    connect(m_map, &VUTesterWorldMapView::coordinatePicked, this, [this](double latitude, double longitude) {
        selectLocation(TWLocationValue(latitude, longitude));
    });
    column->addWidget(m_map);

    auto *form = new QFormLayout;
    m_latitude = new QLineEdit;
    m_latitude->setObjectName(QStringLiteral("latitude"));
    m_latitude->setPlaceholderText(QStringLiteral("-90 to 90"));
    m_longitude = new QLineEdit;
    m_longitude->setObjectName(QStringLiteral("longitude"));
    m_longitude->setPlaceholderText(QStringLiteral("-180 to 180"));
    form->addRow(QStringLiteral("Latitude"), m_latitude);
    form->addRow(QStringLiteral("Longitude"), m_longitude);
    column->addLayout(form);

    auto *buttons = new QHBoxLayout;
    auto *set = new QPushButton(QStringLiteral("Set"));
    set->setObjectName(QStringLiteral("Set"));
    auto *none = new QPushButton(QStringLiteral("None"));
    none->setObjectName(QStringLiteral("None"));
    connect(set, &QPushButton::clicked, this, &VUTesterLocationSelectionViewController::applyTypedCoordinates);
    connect(m_latitude, &QLineEdit::returnPressed, this, &VUTesterLocationSelectionViewController::applyTypedCoordinates);
    connect(m_longitude, &QLineEdit::returnPressed, this, &VUTesterLocationSelectionViewController::applyTypedCoordinates);
    connect(none, &QPushButton::clicked, this, [this] { selectLocation(QVariant()); });
    buttons->addWidget(set);
    buttons->addWidget(none);
    column->addLayout(buttons);

    m_status = new QLabel;
    m_status->setObjectName(QStringLiteral("status"));
    m_status->setWordWrap(true);
    column->addWidget(m_status);

    auto *list = new QListWidget;
    list->setObjectName(QStringLiteral("places"));
    const QList<Place> named = places();
    for (const Place &place : named)
        list->addItem(place.name);
    connect(list, &QListWidget::itemActivated, this, [this, named](QListWidgetItem *item) {
        for (const Place &place : named)
            if (place.name == item->text())
                selectLocation(TWLocationValue(place.latitude, place.longitude));
    });
    connect(list, &QListWidget::itemClicked, list, &QListWidget::itemActivated);
    column->addWidget(list, 1);

    showLocation();
    return view;
}

void VUTesterLocationSelectionViewController::applyTypedCoordinates()
{
    bool okLat = false, okLon = false;
    const double latitude = QLocale().toDouble(m_latitude->text(), &okLat);
    const double longitude = QLocale().toDouble(m_longitude->text(), &okLon);
    if (!okLat || !okLon || latitude < -90 || latitude > 90 || longitude < -180 || longitude > 180) {
        m_status->setText(QStringLiteral("Latitude must be a number from -90 to 90 and longitude from -180 to 180."));
        return;
    }
    selectLocation(TWLocationValue(latitude, longitude));
}

void VUTesterLocationSelectionViewController::selectLocation(const QVariant &location)
{
    m_location = location;
    if (isViewLoaded())
        showLocation();
    if (m_delegate)
        m_delegate->locationDidChange(this, location);
}

void VUTesterLocationSelectionViewController::showLocation()
{
    double latitude = 0, longitude = 0;
    if (!TWLocationFromValue(m_location, &latitude, &longitude)) {
        m_map->setMarker(std::nullopt);
        m_status->setText(QStringLiteral("No location: assets carry none."));
        return;
    }
    m_map->setMarker(QPointF(latitude, longitude));
    m_latitude->setText(QLocale().toString(latitude, 'f', 6));
    m_longitude->setText(QLocale().toString(longitude, 'f', 6));
    m_status->setText(QStringLiteral("Assets are placed at %1, %2.").arg(latitude, 0, 'f', 6).arg(longitude, 0, 'f', 6));
}
