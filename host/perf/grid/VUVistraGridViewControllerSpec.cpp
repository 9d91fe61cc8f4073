#include "VUVistraGridViewControllerSpec.h"

#include "VUSectionedGridLayout.h"

#include <algorithm>
#include <cmath>

void VUVistraGridViewControllerSpec::configureGridLayout(VUSectionedGridLayout *layout, double width,
                                                         const ui::EdgeInsets &safeAreaInsets) const
{
    const ui::EdgeInsets inset{m_metrics.margins.top + safeAreaInsets.top, m_metrics.margins.left + safeAreaInsets.left,
                               m_metrics.margins.bottom + safeAreaInsets.bottom, m_metrics.margins.right + safeAreaInsets.right};
    const double available = std::max(0.0, width - inset.horizontal());
    const double spacing = m_metrics.spacing;
    const int fitting = int(std::ceil((available + spacing) / (m_metrics.preferredItemWidth + spacing)));
    const int columns = std::max(m_metrics.minimumColumns, fitting);
    const double side = std::max(1.0, std::floor((available - spacing * (columns - 1)) / columns));
    layout->setNumberOfColumns(columns);
    layout->setItemSize(QSizeF(side, side));
    layout->setInterItemSpacing(QSizeF(spacing, spacing));
    layout->setSectionContentInset(inset);
}

VUVistraGridViewControllerPhoneSpec::VUVistraGridViewControllerPhoneSpec() : VUVistraGridViewControllerSpec({4, 100, 2, {0, 0, 0, 0}}) {}

VUVistraGridViewControllerPadSpec::VUVistraGridViewControllerPadSpec() : VUVistraGridViewControllerSpec({4, 160, 8, {20, 20, 20, 20}}) {}

const VUVistraGridViewControllerSpec &VUVistraGridViewControllerSpecForLayoutSizeClass(VXLayoutSizeClass sizeClass)
{
    static const VUVistraGridViewControllerPhoneSpec phone;
    static const VUVistraGridViewControllerPadSpec pad;
    if (sizeClass == VXLayoutSizeClass::Large)
        return pad;
    return phone;
}
