#pragma once
// One immutable state of the playground's items: the kind and the extra weight of each item that
// was changed, over defaults from the settings. It turns an item index into a host layout item
// with a title and a colour.

#include "layouts/VUTesterLayoutsPlaygroundSettings.h"

#include "graphics/Color.h"
#include "layout/VXLayoutItem.h"

#include <QHash>
#include <QPointer>

class VUTESTER_EXPORT VUTesterLayoutInput {
public:
    using IndexMap = QHash<qint64, qint64>;

    // No kinds, no weights and no settings: every item a square of weight 0.
    VUTesterLayoutInput() = default;
    VUTesterLayoutInput(IndexMap inputKinds, IndexMap extraWeights, VUTesterLayoutsPlaygroundSettings *settings);

    const IndexMap &inputKinds() const { return m_inputKinds; }
    const IndexMap &extraWeights() const { return m_extraWeights; }
    VUTesterLayoutsPlaygroundSettings *settings() const { return m_settings; }

    // The item's kind, or the settings' default input kind.
    qint64 kindForItemAtIndex(qint64 index) const;
    qint64 extraWeightForItemAtIndex(qint64 index) const;
    // tanh(-(ordering x index)) plus the extra weight: 0 for "Constant", tanh(index) for
    // "Increasing", its negative for "Decreasing", shifted by whole units.
    double weightForItemAtIndex(qint64 index) const;
    VXLayoutItem itemAtIndex(qint64 index) const;
    // The kind's symbol, the weight's marks and the displayed index; the symbol goes when colour
    // shows the kind, the marks when colour shows the weight.
    QString titleForItemAtIndex(qint64 index) const;
    graphics::Color colorForItemAtIndex(qint64 index) const;

    // The size of an item of `kind`, in points, and the symbol its title shows.
    static QSizeF sizeForKind(qint64 kind);
    static QString symbolForKind(qint64 kind);
    // The platform's colour for an item kind when colour shows the kind.
    static graphics::Color colorForKind(qint64 kind);

private:
    IndexMap m_inputKinds;
    IndexMap m_extraWeights;
    // The settings live in the settings tree for the life of the process.
    QPointer<VUTesterLayoutsPlaygroundSettings> m_settings;
};
