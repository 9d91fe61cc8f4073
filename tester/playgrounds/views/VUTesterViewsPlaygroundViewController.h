#pragma once
// The Views playground: every small view of the host, in every state, each on a tile the size of
// a grid cell, placed where the grid places it (Stir Shot marks top left, favourites bottom left,
// durations along the bottom, selection marks bottom right, rings in the middle). Sizes, colours
// and the tiles' background follow the view settings while the screen is shown.

#include "shell/VUTesterExport.h"

#include "ui/ViewController.h"

#include <QList>

class VUBadgeView;

class VUTESTER_EXPORT VUTesterViewsPlaygroundViewController : public ui::ViewController {
    Q_OBJECT
public:
    struct Specimen {
        QString section;
        QString caption;
        VUBadgeView *view;
    };

    VUTesterViewsPlaygroundViewController();

    // Empty until the view is loaded; in screen order.
    const QList<Specimen> &specimens() const { return m_specimens; }
    // The specimen with this caption, or null.
    VUBadgeView *specimenView(const QString &caption) const;

protected:
    QWidget *loadView() override;

private:
    void _applySettings();

    QList<Specimen> m_specimens;
    QList<class SpecimenTile *> m_tiles;
};
