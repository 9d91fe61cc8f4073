#pragma once
// The host's extended traits of a screen: the idiom, the size class and the reference size that
// layouts are computed for, and the orientation. A trait collection enabled for a view controller
// follows the controller's view and tells its observers what changed, as a mask of
// VXExtendedTraitCollectionChange bits.

#include "layout/VXObservable.h"

#include <QSizeF>

class QWidget;
namespace ui {
class ViewController;
}

enum class VXUserInterfaceIdiom { Phone, Pad, TV };
enum class VXLayoutSizeClass { Compact, Regular };
enum class VXLayoutOrientation { Unknown = 0, Portrait = 1, Landscape = 2 };

enum VXExtendedTraitCollectionChange : quint64 {
    VXExtendedTraitCollectionChangeUserInterfaceIdiom = 1,
    VXExtendedTraitCollectionChangeLayoutSizeClass = 2,
    VXExtendedTraitCollectionChangeLayoutOrientation = 4,
    VXExtendedTraitCollectionChangeDisplayScale = 8,
    VXExtendedTraitCollectionChangeLayoutReferenceSize = 16,
};

class VXExtendedTraitCollection : public VXObservable {
public:
    VXExtendedTraitCollection() = default;

    VXUserInterfaceIdiom userInterfaceIdiom() const { return m_idiom; }
    VXLayoutSizeClass layoutSizeClass() const { return m_sizeClass; }
    VXLayoutOrientation layoutOrientation() const { return m_orientation; }
    QSizeF layoutReferenceSize() const { return m_referenceSize; }
    double displayScale() const { return m_displayScale; }

    // Sets every trait from a reference size (wider than 500 points is regular, wider than tall
    // is landscape) and signals what changed.
    void updateWithReferenceSize(QSizeF size, VXUserInterfaceIdiom idiom);

    // The trait collection of a controller, made on the first call; it follows the controller's
    // view from then on and goes with the controller.
    static VXExtendedTraitCollection *enabledForViewController(ui::ViewController *controller);

protected:
    void setTraits(VXUserInterfaceIdiom idiom, VXLayoutSizeClass sizeClass, VXLayoutOrientation orientation, QSizeF referenceSize,
                   double displayScale);

private:
    VXUserInterfaceIdiom m_idiom = VXUserInterfaceIdiom::Phone;
    VXLayoutSizeClass m_sizeClass = VXLayoutSizeClass::Compact;
    VXLayoutOrientation m_orientation = VXLayoutOrientation::Portrait;
    QSizeF m_referenceSize;
    double m_displayScale = 1.0;
};
