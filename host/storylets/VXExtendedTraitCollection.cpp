#include "VXExtendedTraitCollection.h"

#include "ui/ViewController.h"

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace {

// Lives as a child of the controller; keeps the traits in step with the view's size.
class ViewTraits : public QObject {
public:
    explicit ViewTraits(ui::ViewController *controller) : QObject(controller), m_view(controller->view())
    {
        setObjectName(QStringLiteral("VXExtendedTraitCollection"));
        m_view->installEventFilter(this);
        update();
    }
    VXExtendedTraitCollection traits;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_view && event->type() == QEvent::Resize)
            update();
        return false;
    }

private:
    void update()
    {
        const QSizeF size = m_view->size();
        traits.updateWithReferenceSize(size, size.width() >= 700 ? VXUserInterfaceIdiom::Pad : VXUserInterfaceIdiom::Phone);
    }
    QWidget *m_view;
};

} // namespace

void VXExtendedTraitCollection::setTraits(VXUserInterfaceIdiom idiom, VXLayoutSizeClass sizeClass, VXLayoutOrientation orientation,
                                          QSizeF referenceSize, double displayScale)
{
    quint64 change = 0;
    if (idiom != m_idiom)
        change |= VXExtendedTraitCollectionChangeUserInterfaceIdiom;
    if (sizeClass != m_sizeClass)
        change |= VXExtendedTraitCollectionChangeLayoutSizeClass;
    if (orientation != m_orientation)
        change |= VXExtendedTraitCollectionChangeLayoutOrientation;
    if (referenceSize != m_referenceSize)
        change |= VXExtendedTraitCollectionChangeLayoutReferenceSize;
    if (displayScale != m_displayScale)
        change |= VXExtendedTraitCollectionChangeDisplayScale;
    m_idiom = idiom;
    m_sizeClass = sizeClass;
    m_orientation = orientation;
    m_referenceSize = referenceSize;
    m_displayScale = displayScale;
    signalChange(change);
}

void VXExtendedTraitCollection::updateWithReferenceSize(QSizeF size, VXUserInterfaceIdiom idiom)
{
    setTraits(idiom, size.width() > 500 ? VXLayoutSizeClass::Regular : VXLayoutSizeClass::Compact,
              size.width() > size.height() ? VXLayoutOrientation::Landscape : VXLayoutOrientation::Portrait, size, m_displayScale);
}

VXExtendedTraitCollection *VXExtendedTraitCollection::enabledForViewController(ui::ViewController *controller)
{
    auto *traits = static_cast<ViewTraits *>(controller->findChild<QObject *>(QStringLiteral("VXExtendedTraitCollection"), Qt::FindDirectChildrenOnly));
    if (!traits)
        traits = new ViewTraits(controller);
    return &traits->traits;
}
