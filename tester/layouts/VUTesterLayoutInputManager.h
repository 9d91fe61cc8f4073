#pragma once
// Holds the playground's current layout input and replaces it, whole, when the user taps an item;
// observers hear change 1 each time, and every output view redraws.

#include "layouts/VUTesterLayoutInput.h"

#include "layout/VXObservable.h"

#include <memory>

class VUTESTER_EXPORT VUTesterLayoutInputManager : public VXObservable {
public:
    // The change observers hear when the layout input is replaced.
    static constexpr quint64 LayoutInputChange = 1;

    // The first input has no kinds and `initialWeights` as its extra weights.
    VUTesterLayoutInputManager(VUTesterLayoutInput::IndexMap initialWeights, VUTesterLayoutsPlaygroundSettings *settings);

    std::shared_ptr<const VUTesterLayoutInput> layoutInput() const { return m_layoutInput; }
    VUTesterLayoutsPlaygroundSettings *settings() const { return m_settings; }

    // Applies the settings' tap behaviour to item `index` and replaces the input, even when
    // nothing changed, so a tap always redraws.
    void handleTapOnItemAtIndex(qint64 index);

private:
    // Signals a change only for an input other than the one held.
    void setLayoutInput(std::shared_ptr<const VUTesterLayoutInput> layoutInput);

    std::shared_ptr<const VUTesterLayoutInput> m_layoutInput;
    QPointer<VUTesterLayoutsPlaygroundSettings> m_settings;
};
