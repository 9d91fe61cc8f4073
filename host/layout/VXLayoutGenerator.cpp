#include "VXLayoutGenerator.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>

VXLayoutGenerator::VXLayoutGenerator(const VXLayoutMetrics &metrics) : m_metrics(metrics) {}

VXLayoutGenerator::~VXLayoutGenerator() = default;

void VXLayoutGenerator::setItemCount(qint64 count)
{
    count = std::max<qint64>(0, count);
    if (count == m_itemCount)
        return;
    m_itemCount = count;
    invalidate();
}

void VXLayoutGenerator::setKeyItemIndex(qint64 index)
{
    if (index == m_keyItemIndex)
        return;
    m_keyItemIndex = index;
    invalidate();
}

void VXLayoutGenerator::setItemLayoutInfoBlock(ItemLayoutInfoBlock block)
{
    m_itemLayoutInfo = std::move(block);
    invalidate();
}

qint64 VXLayoutGenerator::numberOfGeometriesWithKind(qint64 kind)
{
    if (kind != VXLayoutGeometryKindItem)
        return 0;
    layoutIfNeeded();
    return qint64(m_result.geometries.size());
}

void VXLayoutGenerator::getGeometries(VXLayoutGeometry *geometries, VXLayoutRange range, qint64 kind)
{
    const qint64 available = numberOfGeometriesWithKind(kind);
    if (range.location < 0 || range.length < 0 || range.location > available || range.length > available - range.location)
        qFatal("VXLayoutGenerator: geometries %lld to %lld of kind %lld asked for, %lld exist", range.location,
               range.location + range.length, kind, available);
    if (range.length > 0)
        std::copy_n(m_result.geometries.begin() + range.location, range.length, geometries);
}

VXLayoutGenerator::CornerSpriteIndexes VXLayoutGenerator::cornerSpriteIndexes()
{
    layoutIfNeeded();
    return m_result.corners;
}

QSizeF VXLayoutGenerator::size()
{
    layoutIfNeeded();
    return {width(), m_result.height};
}

double VXLayoutGenerator::width() const
{
    const double w = m_metrics.referenceSize.width();
    return std::isfinite(w) && w > 0 ? w : 0.0;
}

double VXLayoutGenerator::spacingForColumns(int columns) const
{
    const double spacing = std::isfinite(m_metrics.interitemSpacing) ? std::max(0.0, m_metrics.interitemSpacing) : 0.0;
    if (columns < 2)
        return spacing;
    return std::min(spacing, width() / (2.0 * (columns - 1)));
}

void VXLayoutGenerator::layoutIfNeeded()
{
    if (m_valid)
        return;
    std::vector<VXLayoutItem> items(static_cast<size_t>(m_itemCount));
    if (m_itemLayoutInfo)
        for (qint64 i = 0; i < m_itemCount; ++i)
            items[size_t(i)] = m_itemLayoutInfo(i);
    const qint64 key = m_keyItemIndex >= 0 && m_keyItemIndex < m_itemCount ? m_keyItemIndex : VXNotFound;
    m_result = Result();
    m_result.geometries.resize(items.size());
    layout(items, key, &m_result);
    m_valid = true;
}
