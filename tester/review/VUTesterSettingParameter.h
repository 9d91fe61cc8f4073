#pragma once
// One dimension of a review (a font, a title, a tile kind...): the settings key it drives, the
// values it may take, flat or in groups, their titles, the rows that edit it, the toolbar buttons
// that step it, and the values a review walks for the current setting.
//
// A group label ("10. All": a number that orders the groups, ". ", a name) may itself be the
// setting's value; it then stands for every value of its group. "0. Default" is the group whose
// first value is the default; its values are listed without a header of their own.

#include "shell/VUTesterExport.h"
#include "settings/TWModule.h"
#include "settings/TWSettings.h"
#include "ui/ViewController.h"

#include <QMap>
#include <QPointer>
#include <QVariant>

#include <optional>

namespace ui {
class BarButtonItem;
}

using VUTesterGroupedValues = QMap<QString, QVariantList>;

class VUTESTER_EXPORT VUTesterSettingParameter {
public:
    static const QString kDefaultGroupLabel; // "0. Default"

    virtual ~VUTesterSettingParameter();

    // The description each parameter gives of itself; read once, on first use, and kept.
    // The row title and the settings key have no default: a parameter must name them.
    virtual QString name() const;
    virtual QString key() const;
    // A flat list of values; when absent, groupedValues holds them.
    virtual std::optional<QVariantList> values() const { return std::nullopt; }
    virtual VUTesterGroupedValues groupedValues() const { return {}; }
    // Display titles by value (the value's text as the key); values without one show their text.
    virtual QMap<QString, QString> valueTitles() const { return {}; }
    // Whether a free-text row is offered beside the choice.
    virtual bool allowStringEdit() const { return false; }

    virtual QString titleForValue(const QVariant &value) const;

    TWSettings *settings() const { return m_settings; }
    virtual void setSettings(TWSettings *settings);
    ui::ViewController *presentingViewController() const { return m_presentingViewController; }
    void setPresentingViewController(ui::ViewController *controller) { m_presentingViewController = controller; }

    QVariant defaultValue() const;
    void setDefaultValues();
    // Every value, groups in case-insensitive order of their labels, each value once.
    QVariantList _possibleValues() const;
    // The values a review walks now: a chosen group's values in their order, else the value alone.
    virtual QVariantList valuesToEnumerate() const;
    // A choice row, and the free-text row when allowed (hidden while a group is chosen).
    virtual std::vector<TWRowPtr> rows() const;
    // None while a group is chosen; else "◀", a picker named after the parameter, "▶". The
    // caller owns them.
    virtual QList<ui::BarButtonItem *> barButtonItems();

    void _selectValueWithOffset(qint64 offset);
    void _handleNextBarButtonItem(ui::BarButtonItem *sender);
    void _handlePreviousBarButtonItem(ui::BarButtonItem *sender);
    void _handlePickBarButtonItem(ui::BarButtonItem *sender);

    QVariant currentValue() const;
    void setCurrentValue(const QVariant &value);
    // Whether `value` is the label of one of the groups.
    bool isGroupLabel(const QVariant &value) const;
    // Numbers compare by value, whatever their type; anything else exactly.
    static bool sameValue(const QVariant &a, const QVariant &b);

protected:
    const std::optional<QVariantList> &_values() const { return description().values; }
    const VUTesterGroupedValues &_groupedValues() const { return description().groupedValues; }
    // Group labels in case-insensitive order.
    QStringList sortedGroupLabels() const;
    // An action sheet of `titles` (the current one marked "✓ %@") and "Cancel", presented from
    // the presenting view controller; `choose` gets the index picked.
    void presentPicker(const QStringList &titles, int current, std::function<void(int)> choose);
    // The index of `offset` steps from `current` in a list of `count`, wrapping at both ends;
    // 0 when there is no current index.
    static qsizetype steppedIndex(qsizetype current, qint64 offset, qsizetype count);

private:
    struct Description {
        QString name;
        QString key;
        std::optional<QVariantList> values;
        VUTesterGroupedValues groupedValues;
        QMap<QString, QString> valueTitles;
        bool allowStringEdit = false;
    };
    const Description &description() const;

    mutable std::optional<Description> m_description;
    QPointer<TWSettings> m_settings;
    QPointer<ui::ViewController> m_presentingViewController;
};
