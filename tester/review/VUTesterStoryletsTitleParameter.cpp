#include "review/VUTesterStoryletsTitleParameter.h"

#include "review/VUTesterStoryletsGraphStrings.h"
#include "settings/TWSettings.h"
#include "ui/BarButtonItem.h"

const QString VUTesterStoryletsTitleParameter::kGraphStringsGroupLabel = QStringLiteral("5. Graph Strings");

namespace {

const QString kGraphStrings = QStringLiteral("Graph Strings");

// Parts joined by soft hyphens, the only places the name may break.
QString softHyphenated(std::initializer_list<const char16_t *> parts)
{
    QStringList list;
    for (const char16_t *part : parts)
        list << QString::fromUtf16(part);
    return list.join(QChar::SoftHyphen);
}

} // namespace

QString VUTesterStoryletsTitleParameter::longWelshName()
{
    return softHyphenated({u"Llanfair", u"pwllgwyngyll", u"gogery", u"chwyrn", u"drobwll", u"llan", u"tysilio", u"gogo", u"goch"});
}

QString VUTesterStoryletsTitleParameter::longMaoriName()
{
    return softHyphenated({u"Taumatawhakatangi", u"hangakoauauotamatea", u"turipukakapikimaunga", u"horonukupokaiwhen", u"uakitanatahu"});
}

VUTesterGroupedValues VUTesterStoryletsTitleParameter::groupedValues() const
{
    const QStringList strings = {
        QStringLiteral("Best of last 3 months"),
        QStringLiteral("Westvale"),
        QStringLiteral("Thanksgiving"),
        QStringLiteral("San Francisco"),
        QStringLiteral("Vaud to Graubünden"),
        QStringLiteral("Zürich Flughafen"),
        QStringLiteral("Karlskrona, Sweden"),
        QStringLiteral("La Cañada Flintridge"),
        QStringLiteral("Downtown Campbell, CA"),
        QStringLiteral("Neuchâtel & Lavertezzo"),
        QStringLiteral("United States & Australia"),
        QStringLiteral("Saint-Malo to Pontorson"),
        QStringLiteral("Saint-Malo to Deauville"),
        QStringLiteral("Saint-Malo to Trouville-sur-Mer"),
        QStringLiteral("Saint-Malo & Saint-Cast-le-Guildo"),
        QStringLiteral("West Hollywood to Santa Monica"),
        QStringLiteral("Neuchâtel & ") + longWelshName(),
        longWelshName(),
        longMaoriName(),
        QStringLiteral("Fim de semana passado"),
        QStringLiteral("O melhor dos últimos 3 meses"),
        QStringLiteral("Il meglio delle ultimi 3 mesi"),
        QStringLiteral("חֲנֻכָּה"),
    };
    QVariantList values;
    for (const QString &string : strings)
        values << string;
    return {{kDefaultGroupLabel, {QStringLiteral("This weqk\nin history")}},
            {kGraphStringsGroupLabel, {}},
            {QStringLiteral("10. Strings"), values},
            {QStringLiteral("20. Overlapping Strings"), {QStringLiteral("A weqk in\nGraubünden"), QStringLiteral("米兰中央车站,\n意大利")}}};
}

QString VUTesterStoryletsTitleParameter::titleForValue(const QVariant &value) const
{
    return VUTesterSettingParameter::titleForValue(value).replace(QLatin1Char('\n'), QStringLiteral("⏎"));
}

VUTesterStoryletsGraphStrings *VUTesterStoryletsTitleParameter::graphStrings() const
{
    return m_graphStrings ? m_graphStrings : VUTesterStoryletsGraphStrings::sharedInstance();
}

void VUTesterStoryletsTitleParameter::setSettings(TWSettings *settings)
{
    VUTesterSettingParameter::setSettings(settings);
    const QString value = currentValue().toString();
    m_shouldUseGraphStrings = value.contains(kGraphStrings);
    // Stepping continues from the language and key the setting already names.
    if (m_shouldUseGraphStrings) {
        const QStringList parts = value.split(QLatin1Char('/'));
        m_currentLanguage = parts.value(1).isEmpty() ? QString() : parts.value(1);
        m_currentString = parts.value(2).isEmpty() ? QString() : parts.value(2);
    }
}

QList<ui::BarButtonItem *> VUTesterStoryletsTitleParameter::barButtonItems()
{
    if (!m_shouldUseGraphStrings)
        return VUTesterSettingParameter::barButtonItems();
    return {new ui::BarButtonItem(QStringLiteral("◀"), [this](ui::BarButtonItem *) { _selectLanguageValueWithOffset(-1); }),
            new ui::BarButtonItem(QStringLiteral("Language"), [this](ui::BarButtonItem *item) { _handleLanguageBarButtonItem(item); }),
            new ui::BarButtonItem(QStringLiteral("▶"), [this](ui::BarButtonItem *) { _selectLanguageValueWithOffset(1); }),
            new ui::BarButtonItem(QStringLiteral("◀"), [this](ui::BarButtonItem *) { _selectStringValueWithOffset(-1); }),
            new ui::BarButtonItem(QStringLiteral("String"), [this](ui::BarButtonItem *item) { _handleStringBarButtonItem(item); }),
            new ui::BarButtonItem(QStringLiteral("▶"), [this](ui::BarButtonItem *) { _selectStringValueWithOffset(1); })};
}

void VUTesterStoryletsTitleParameter::_setCurrentLanguage(const QString &language)
{
    if (language == m_currentLanguage && language.isNull() == m_currentLanguage.isNull())
        return;
    m_currentLanguage = language;
    _updateSettingValue();
}

void VUTesterStoryletsTitleParameter::_setCurrentString(const QString &key)
{
    if (key == m_currentString && key.isNull() == m_currentString.isNull())
        return;
    m_currentString = key;
    _updateSettingValue();
}

void VUTesterStoryletsTitleParameter::_updateSettingValue()
{
    setCurrentValue(QStringList{kGraphStrings, m_currentLanguage, m_currentString}.join(QLatin1Char('/')));
}

QStringList VUTesterStoryletsTitleParameter::_availableLanguages() const
{
    return graphStrings()->languages();
}

QStringList VUTesterStoryletsTitleParameter::_availableStrings() const
{
    return VUTesterStoryletsGraphStrings::keys();
}

void VUTesterStoryletsTitleParameter::_selectLanguageValueWithOffset(qint64 offset)
{
    const QStringList languages = _availableLanguages();
    if (!languages.isEmpty())
        _setCurrentLanguage(languages[steppedIndex(languages.indexOf(m_currentLanguage), offset, languages.size())]);
}

void VUTesterStoryletsTitleParameter::_selectStringValueWithOffset(qint64 offset)
{
    const QStringList keys = _availableStrings();
    if (!keys.isEmpty())
        _setCurrentString(keys[steppedIndex(keys.indexOf(m_currentString), offset, keys.size())]);
}

void VUTesterStoryletsTitleParameter::presentChoice(const QStringList &choices, const QString &current,
                                                    void (VUTesterStoryletsTitleParameter::*set)(const QString &))
{
    const QStringList titles = QStringList{QStringLiteral("All")} + choices;
    const int currentIndex = current.isNull() ? -1 : int(choices.indexOf(current)) + 1;
    presentPicker(titles, currentIndex > 0 ? currentIndex : -1, [this, choices, set](int index) {
        (this->*set)(index == 0 ? QString() : choices[index - 1]);
    });
}

void VUTesterStoryletsTitleParameter::_handleLanguageBarButtonItem(ui::BarButtonItem *)
{
    presentChoice(_availableLanguages(), m_currentLanguage, &VUTesterStoryletsTitleParameter::_setCurrentLanguage);
}

void VUTesterStoryletsTitleParameter::_handleStringBarButtonItem(ui::BarButtonItem *)
{
    presentChoice(_availableStrings(), m_currentString, &VUTesterStoryletsTitleParameter::_setCurrentString);
}

QVariantList VUTesterStoryletsTitleParameter::valuesToEnumerate() const
{
    if (!m_shouldUseGraphStrings)
        return VUTesterSettingParameter::valuesToEnumerate();
    const QStringList parts = currentValue().toString().split(QLatin1Char('/'));
    const QString language = parts.value(1), key = parts.value(2);
    const QStringList languages = language.isEmpty() ? _availableLanguages() : QStringList{language};
    const QStringList keys = key.isEmpty() ? _availableStrings() : QStringList{key};
    QVariantList values;
    for (const QString &l : languages)
        for (const QString &k : keys) {
            const QString text = graphStrings()->localizedStringForKey(k, l);
            values << (text.isNull() ? QString(QLatin1String("")) : text + QStringLiteral("//%1\t%2").arg(l, k));
        }
    return values;
}
