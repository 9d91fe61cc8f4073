#include "layouts/VUTesterLayoutInputManager.h"

namespace {

using Settings = VUTesterLayoutsPlaygroundSettings;

qint64 nextKind(qint64 behavior, qint64 kind)
{
    switch (behavior) {
    case Settings::TapTogglePanos:
        return kind == Settings::Panos ? Settings::Squares : Settings::Panos;
    case Settings::TapRotate: {
        static const qint64 rotated[] = {Settings::Squares, Settings::Landscapes, Settings::Portraits, Settings::VerticalPanos, Settings::Panos};
        return kind >= 0 && kind < qint64(std::size(rotated)) ? rotated[kind] : kind;
    }
    case Settings::TapCycleNonPanos:
        if (kind == Settings::Panos || kind == Settings::VerticalPanos)
            return Settings::Squares;
        return kind >= 0 && kind < Settings::Panos ? (kind + 1) % Settings::Panos : kind;
    case Settings::TapCycleThrough:
        return kind >= 0 && kind <= Settings::VerticalPanos ? (kind + 1) % (Settings::VerticalPanos + 1) : kind;
    default:
        return kind;
    }
}

qint64 nextExtraWeight(qint64 behavior, qint64 weight)
{
    switch (behavior) {
    case Settings::TapChangeWeight:
        return weight == 0 ? 1 : weight == 1 ? -1 : weight == -1 ? 0 : weight;
    case Settings::TapIncreaseWeight:
        return weight + 1;
    case Settings::TapDecreaseWeight:
        return weight - 1;
    default:
        return weight;
    }
}

} // namespace

VUTesterLayoutInputManager::VUTesterLayoutInputManager(VUTesterLayoutInput::IndexMap initialWeights, VUTesterLayoutsPlaygroundSettings *settings)
    : m_layoutInput(std::make_shared<VUTesterLayoutInput>(VUTesterLayoutInput::IndexMap(), std::move(initialWeights), settings)), m_settings(settings)
{
}

void VUTesterLayoutInputManager::setLayoutInput(std::shared_ptr<const VUTesterLayoutInput> layoutInput)
{
    if (layoutInput == m_layoutInput)
        return;
    m_layoutInput = std::move(layoutInput);
    signalChange(LayoutInputChange);
}

void VUTesterLayoutInputManager::handleTapOnItemAtIndex(qint64 index)
{
    const qint64 behavior = m_settings ? m_settings->tapBehavior() : Settings::TapNone;
    VUTesterLayoutInput::IndexMap kinds = m_layoutInput->inputKinds();
    VUTesterLayoutInput::IndexMap weights = m_layoutInput->extraWeights();
    // Both entries are written even when they equal the defaults: the item keeps its kind should
    // the default input kind change later.
    kinds.insert(index, nextKind(behavior, m_layoutInput->kindForItemAtIndex(index)));
    weights.insert(index, nextExtraWeight(behavior, m_layoutInput->extraWeightForItemAtIndex(index)));
    performChanges([&] { setLayoutInput(std::make_shared<VUTesterLayoutInput>(std::move(kinds), std::move(weights), m_settings)); });
}
