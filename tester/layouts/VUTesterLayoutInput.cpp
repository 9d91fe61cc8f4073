#include "layouts/VUTesterLayoutInput.h"

#include <cmath>

namespace {

struct KindInfo {
    double width;
    double height;
    const char *symbol;
    // The platform's system colour for the kind.
    double red, green, blue;
};

// Indexed by kind; any other kind is sized like the first and has no symbol.
const KindInfo kKinds[] = {
    {300, 300, "", 1.0, 0.584, 0.0},      // squares: orange
    {300, 400, "▯", 0.0, 0.478, 1.0},     // portraits: blue
    {400, 300, "▭", 0.204, 0.78, 0.349},  // landscapes: green
    {1000, 300, "━", 1.0, 0.231, 0.188},  // panos: red
    {300, 1000, "┃", 0.686, 0.322, 0.871}, // vertical panos: purple
};

const KindInfo *kindInfo(qint64 kind)
{
    return kind >= 0 && kind < qint64(std::size(kKinds)) ? &kKinds[kind] : nullptr;
}

} // namespace

VUTesterLayoutInput::VUTesterLayoutInput(IndexMap inputKinds, IndexMap extraWeights, VUTesterLayoutsPlaygroundSettings *settings)
    : m_inputKinds(std::move(inputKinds)), m_extraWeights(std::move(extraWeights)), m_settings(settings)
{
}

QSizeF VUTesterLayoutInput::sizeForKind(qint64 kind)
{
    const KindInfo *info = kindInfo(kind);
    return info ? QSizeF(info->width, info->height) : QSizeF(kKinds[0].width, kKinds[0].height);
}

QString VUTesterLayoutInput::symbolForKind(qint64 kind)
{
    const KindInfo *info = kindInfo(kind);
    return info ? QString::fromUtf8(info->symbol) : QString();
}

graphics::Color VUTesterLayoutInput::colorForKind(qint64 kind)
{
    const KindInfo *info = kindInfo(kind);
    return info ? graphics::Color::rgb(info->red, info->green, info->blue) : graphics::Color::gray(0.5);
}

qint64 VUTesterLayoutInput::kindForItemAtIndex(qint64 index) const
{
    const auto found = m_inputKinds.constFind(index);
    if (found != m_inputKinds.cend())
        return found.value();
    return m_settings ? m_settings->defaultInputKind() : 0;
}

qint64 VUTesterLayoutInput::extraWeightForItemAtIndex(qint64 index) const
{
    return m_extraWeights.value(index, 0);
}

double VUTesterLayoutInput::weightForItemAtIndex(qint64 index) const
{
    const qint64 ordering = m_settings ? m_settings->itemWeightsOrdering() : 0;
    return std::tanh(double(-(ordering * index))) + double(extraWeightForItemAtIndex(index));
}

VXLayoutItem VUTesterLayoutInput::itemAtIndex(qint64 index) const
{
    return VXLayoutItem(sizeForKind(kindForItemAtIndex(index)), weightForItemAtIndex(index));
}

QString VUTesterLayoutInput::titleForItemAtIndex(qint64 index) const
{
    const qint64 scheme = m_settings ? m_settings->colorScheme() : 0;
    const QString symbol = scheme == VUTesterLayoutsPlaygroundSettings::ColorByKind ? QString() : symbolForKind(kindForItemAtIndex(index));
    QString marks;
    if (scheme != VUTesterLayoutsPlaygroundSettings::ColorByWeight) {
        const qint64 extra = extraWeightForItemAtIndex(index);
        marks = extra >= 1 ? QStringLiteral("💚").repeated(extra) : extra <= -1 ? QStringLiteral("💔").repeated(-extra) : QString();
    }
    const bool fromZero = m_settings && m_settings->displayedIndexesStartAtZero();
    return symbol + marks + QString::number(fromZero ? index : index + 1);
}

graphics::Color VUTesterLayoutInput::colorForItemAtIndex(qint64 index) const
{
    const qint64 scheme = m_settings ? m_settings->colorScheme() : 0;
    switch (scheme) {
    case VUTesterLayoutsPlaygroundSettings::ColorByIndex: {
        const qint64 count = m_settings->maximumNumberOfItems();
        return graphics::Color::hsb(count > 0 ? double(index) / double(count) : 0.0, 1, 1, 1);
    }
    case VUTesterLayoutsPlaygroundSettings::ColorByKind:
        return colorForKind(kindForItemAtIndex(index));
    case VUTesterLayoutsPlaygroundSettings::ColorByWeight: {
        // Components past 1 are clamped by the colour itself.
        const double weight = weightForItemAtIndex(index);
        return graphics::Color::hsb(0, std::max(weight * 0.5, 0.0) + 0.5, weight * 0.5 + 1.0, 1);
    }
    default:
        return graphics::Color::gray(0.5);
    }
}
