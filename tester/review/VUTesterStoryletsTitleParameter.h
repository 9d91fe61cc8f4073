#pragma once
// The title under review: a default title, fixed lists of hard titles (long words with soft
// hyphens, accents, right-to-left and CJK text, forced line breaks), free text, or the graph
// strings: every title format of the knowledge-graph framework in every language.
//
// Graph-strings mode starts when the group "5. Graph Strings" is chosen. The setting's value is
// then "Graph Strings/LANGUAGE/KEY", either part empty for all of them; six toolbar buttons step
// and pick the language and the key, and the values to enumerate are the formats' texts, each
// followed by "//LANGUAGE\tKEY" so that the review knows what it is showing.

#include "review/VUTesterSettingParameter.h"

class VUTesterStoryletsGraphStrings;

class VUTESTER_EXPORT VUTesterStoryletsTitleParameter : public VUTesterSettingParameter {
public:
    static const QString kGraphStringsGroupLabel; // "5. Graph Strings"
    // The place names under test, with soft hyphens where they may break.
    static QString longWelshName();
    static QString longMaoriName();

    QString name() const override { return QStringLiteral("Title"); }
    QString key() const override { return QStringLiteral("titleText"); }
    VUTesterGroupedValues groupedValues() const override;
    bool allowStringEdit() const override { return true; }
    // Line breaks show as "⏎".
    QString titleForValue(const QVariant &value) const override;

    void setSettings(TWSettings *settings) override;
    QList<ui::BarButtonItem *> barButtonItems() override;
    QVariantList valuesToEnumerate() const override;

    // The catalogue the mode walks; the shared one unless a test gives another.
    VUTesterStoryletsGraphStrings *graphStrings() const;
    void setGraphStrings(VUTesterStoryletsGraphStrings *graphStrings) { m_graphStrings = graphStrings; }

    bool _shouldUseGraphStrings() const { return m_shouldUseGraphStrings; }
    // Null: all languages (all keys).
    QString _currentLanguage() const { return m_currentLanguage; }
    QString _currentString() const { return m_currentString; }
    void _setCurrentLanguage(const QString &language);
    void _setCurrentString(const QString &key);
    void _updateSettingValue();
    void _selectLanguageValueWithOffset(qint64 offset);
    void _selectStringValueWithOffset(qint64 offset);
    void _handleLanguageBarButtonItem(ui::BarButtonItem *sender);
    void _handleStringBarButtonItem(ui::BarButtonItem *sender);
    QStringList _availableLanguages() const;
    QStringList _availableStrings() const;

private:
    // Picks from `choices` with "All" (null) first.
    void presentChoice(const QStringList &choices, const QString &current, void (VUTesterStoryletsTitleParameter::*set)(const QString &));

    bool m_shouldUseGraphStrings = false;
    QString m_currentLanguage;
    QString m_currentString;
    VUTesterStoryletsGraphStrings *m_graphStrings = nullptr;
};
