#include "CollectionViewCell.h"

#include "CollectionViewLayout.h"
#include "Geometry.h"

namespace ui {

CollectionReusableView::CollectionReusableView(QWidget *parent) : QWidget(parent) {}

void CollectionReusableView::applyLayoutAttributes(const CollectionViewLayoutAttributes &attributes)
{
    setGeometry(pixelRect(attributes.frame));
    setVisible(!attributes.hidden);
}

CollectionViewCell::CollectionViewCell(QWidget *parent) : CollectionReusableView(parent), m_contentView(new QWidget(this)) {}

void CollectionViewCell::resizeEvent(QResizeEvent *)
{
    m_contentView->setGeometry(rect());
}

} // namespace ui
