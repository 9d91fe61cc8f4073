#pragma once
// The description of a settings screen: a module of sections of rows. Built by each settings
// class's settingsControllerModule() and rendered by the settings screen.

#include "TWCondition.h"

#include <QString>
#include <QStringList>
#include <QVariantList>

#include <functional>
#include <memory>
#include <vector>

class TWSettings;
class TWRow;
namespace ui {
class ViewController;
}

// What an action gets when its row is tapped.
struct TWRowActionContext {
    TWSettings *settings = nullptr;           // the settings object the module describes
    ui::ViewController *viewController = nullptr; // the settings screen showing the row
    TWRow *row = nullptr;
};

class TWRowAction {
public:
    using Handler = std::function<void(const TWRowActionContext &)>;
    virtual ~TWRowAction() = default;
    static std::shared_ptr<TWRowAction> actionWithHandler(Handler handler);
    virtual void perform(const TWRowActionContext &context) const;
    virtual QString describe() const { return QStringLiteral("action"); }

protected:
    Handler m_handler;
};

// Pushes the view controller that the creator makes onto the settings screen's navigation stack.
class TWUIPushViewControllerRowAction : public TWRowAction {
public:
    using Creator = std::function<ui::ViewController *(const TWRowActionContext &)>;
    static std::shared_ptr<TWUIPushViewControllerRowAction> actionWithViewControllerCreator(Creator creator);
    void perform(const TWRowActionContext &context) const override;
    QString describe() const override { return QStringLiteral("push"); }

private:
    Creator m_creator;
};

// Restores defaults of the settings object at a key path below the module's; an empty path means
// the module's own object (and, for the root, the whole tree).
class TWRestoreDefaultSettingsRowAction : public TWRowAction {
public:
    static std::shared_ptr<TWRestoreDefaultSettingsRowAction> actionWithSettingsKeyPath(const QString &keyPath = QString());
    void perform(const TWRowActionContext &context) const override;
    QString describe() const override { return QStringLiteral("restore defaults"); }

private:
    QString m_keyPath;
};

class TWRow {
public:
    enum class Kind { Switch, Slider, Choice, EditFloat, EditString, DrillDown, Button };

    virtual ~TWRow() = default;
    Kind kind() const { return m_kind; }
    QString kindName() const;
    const QString &title() const { return m_title; }
    // The key path the row edits (switch, slider, choice, edit rows) or opens (drill-down).
    const QString &valueKeyPath() const { return m_keyPath; }

    // Modifiers; each returns the row for chaining.
    TWRow *conditionFormat(const QString &format);
    TWRow *condition(TWPredicate predicate);
    TWRow *titleKeyPath(const QString &keyPath);
    TWRow *action(std::shared_ptr<TWRowAction> action);

    const TWCondition &rowCondition() const { return m_condition; }
    const QString &liveTitleKeyPath() const { return m_titleKeyPath; }
    const std::shared_ptr<TWRowAction> &rowAction() const { return m_action; }
    // The title to show now: the value at the title key path when there is one.
    QString displayTitle(const TWSettings *settings) const;
    bool isVisible(const TWSettings *settings) const { return m_condition.evaluate(settings); }

    // Whether the row edits the value at its key path (switch, slider, choice and edit rows).
    bool editsValue() const;
    // Whether the row can put `value`, already of the key's kind, into its key. Rows that edit
    // no value offer nothing.
    virtual bool offersValue(const QVariant &value) const { return false; }
    // What the row offers, completing "VALUE is not ...": "one of 0 (Photo), 1 (Video)",
    // "within 100 to 15000".
    virtual QString offeredValuesText() const { return {}; }

protected:
    TWRow(Kind kind, QString title, QString keyPath) : m_kind(kind), m_title(std::move(title)), m_keyPath(std::move(keyPath)) {}

private:
    Kind m_kind;
    QString m_title;
    QString m_keyPath;
    QString m_titleKeyPath;
    TWCondition m_condition;
    std::shared_ptr<TWRowAction> m_action;
};

using TWRowPtr = std::shared_ptr<TWRow>;

class TWSwitchRow : public TWRow {
public:
    static std::shared_ptr<TWSwitchRow> rowWithTitle(const QString &title, const QString &valueKeyPath);
    bool offersValue(const QVariant &value) const override;
    QString offeredValuesText() const override { return QStringLiteral("true or false"); }

private:
    using TWRow::TWRow;
};

class TWSliderRow : public TWRow {
public:
    static std::shared_ptr<TWSliderRow> rowWithTitle(const QString &title, const QString &valueKeyPath);
    TWSliderRow *minValue(double minimum, double maximum);
    TWSliderRow *vu_increment(double step);
    double minimum() const { return m_min; }
    double maximum() const { return m_max; }
    // 0: continuous.
    double increment() const { return m_increment; }
    // Any number within the bounds, whatever the step: the step is the control's.
    bool offersValue(const QVariant &value) const override;
    QString offeredValuesText() const override;

private:
    using TWRow::TWRow;
    double m_min = 0, m_max = 1, m_increment = 0;
};

class TWChoiceRow : public TWRow {
public:
    static std::shared_ptr<TWChoiceRow> rowWithTitle(const QString &title, const QString &valueKeyPath);
    // Values and their titles, parallel and of equal length.
    TWChoiceRow *possibleValues(const QVariantList &values, const QStringList &titles);
    // Values titled by their own text.
    TWChoiceRow *vu_possibleValues(const QVariantList &values);
    const QVariantList &values() const { return m_values; }
    const QStringList &titles() const { return m_titles; }
    // The title of `value`, or its own text when it is not one of the choices.
    QString titleForValue(const QVariant &value) const;
    int indexOfValue(const QVariant &value) const;
    bool offersValue(const QVariant &value) const override { return indexOfValue(value) >= 0; }
    QString offeredValuesText() const override;

private:
    using TWRow::TWRow;
    QVariantList m_values;
    QStringList m_titles;
};

class TWEditFloatRow : public TWRow {
public:
    static std::shared_ptr<TWEditFloatRow> rowWithTitle(const QString &title, const QString &valueKeyPath);
    bool offersValue(const QVariant &value) const override;
    QString offeredValuesText() const override { return QStringLiteral("a finite number"); }

private:
    using TWRow::TWRow;
};

class TWEditStringRow : public TWRow {
public:
    static std::shared_ptr<TWEditStringRow> rowWithTitle(const QString &title, const QString &valueKeyPath);
    // Whether an empty (or all-blank) text is refused, as for a folder to write into.
    bool requiresText() const { return m_requiresText; }
    TWEditStringRow *setRequiresText(bool requiresText);
    bool offersValue(const QVariant &value) const override;
    QString offeredValuesText() const override;

private:
    using TWRow::TWRow;
    bool m_requiresText = false;
};

class TWDrillDownRow : public TWRow {
public:
    static std::shared_ptr<TWDrillDownRow> rowWithTitle(const QString &title, const QString &childSettingsKeyPath);
    // Opens the module of a settings object outside this tree.
    static std::shared_ptr<TWDrillDownRow> vu_rowWithTitle(const QString &title, TWSettings *settings);
    TWSettings *foreignSettings() const { return m_foreign; }

private:
    using TWRow::TWRow;
    TWSettings *m_foreign = nullptr;
};

class TWButtonRow : public TWRow {
public:
    static std::shared_ptr<TWButtonRow> rowWithTitle(const QString &title, std::shared_ptr<TWRowAction> action);
    // A button whose block receives the settings screen's view controller.
    static std::shared_ptr<TWButtonRow> vu_rowWithTitle(const QString &title, std::function<void(ui::ViewController *)> block);

private:
    using TWRow::TWRow;
};

struct TWSection {
    std::vector<TWRowPtr> rows;
    QString title;
    TWCondition condition;

    static TWSection sectionWithRows(std::vector<TWRowPtr> rows, const QString &title = QString(), const QString &conditionFormat = QString());
    bool isVisible(const TWSettings *settings) const { return condition.evaluate(settings); }
};

class TWModule {
public:
    static std::shared_ptr<TWModule> moduleWithTitle(const QString &title, std::vector<TWSection> contents);
    const QString &title() const { return m_title; }
    const std::vector<TWSection> &sections() const { return m_sections; }
    // A row by title, for tests and scripted taps; null when absent.
    TWRow *rowWithTitle(const QString &title) const;
    // The rows that edit the value at `keyPath`, in screen order.
    std::vector<const TWRow *> rowsEditingKeyPath(const QString &keyPath) const;

private:
    QString m_title;
    std::vector<TWSection> m_sections;
};

using TWModulePtr = std::shared_ptr<TWModule>;
