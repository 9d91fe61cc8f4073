#pragma once
// Picks a place without a network: click the world map, type coordinates, or choose a named
// place. Every change is reported to the delegate at once; "None" clears the location.

#include "shell/VUTesterExport.h"

#include "ui/ViewController.h"

#include <QVariant>

class QLabel;
class QLineEdit;
class QListWidget;
class VUTesterLocationSelectionViewController;
class VUTesterWorldMapView;

class VUTesterLocationSelectorDelegate {
public:
    virtual ~VUTesterLocationSelectorDelegate() = default;
    // `location` is a location value (see TWLocationValue) or nil.
    virtual void locationDidChange(VUTesterLocationSelectionViewController *selector, const QVariant &location) = 0;
};

class VUTESTER_EXPORT VUTesterLocationSelectionViewController : public ui::ViewController {
    Q_OBJECT
public:
    VUTesterLocationSelectionViewController(const QVariant &location, VUTesterLocationSelectorDelegate *delegate);

    QVariant location() const { return m_location; }
    // Sets the location as the screen's controls do, and tells the delegate.
    void selectLocation(const QVariant &location);

    struct Place {
        QString name;
        double latitude;
        double longitude;
    };
    // The named places shipped with the module, by name.
    static QList<Place> places();

protected:
    QWidget *loadView() override;

private:
    void applyTypedCoordinates();
    void showLocation();

    QVariant m_location;
    VUTesterLocationSelectorDelegate *m_delegate;
    VUTesterWorldMapView *m_map = nullptr;
    QLineEdit *m_latitude = nullptr;
    QLineEdit *m_longitude = nullptr;
    QLabel *m_status = nullptr;
};
