#include "review/VUTesterSettingParameter.h"

#include "settings/TWSettings.h"
#include "ui/AlertController.h"
#include "ui/BarButtonItem.h"
#include "ui/ViewController.h"

#include <algorithm>

const QString VUTesterSettingParameter::kDefaultGroupLabel = QStringLiteral("0. Default");

namespace {

// Case-insensitive, with runs of digits compared as numbers: "5. Graph Strings" before "10. Strings".
bool naturalLess(const QString &a, const QString &b)
{
    qsizetype i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            qsizetype ei = i, ej = j;
            while (ei < a.size() && a[ei].isDigit())
                ++ei;
            while (ej < b.size() && b[ej].isDigit())
                ++ej;
            const qulonglong x = a.mid(i, ei - i).toULongLong(), y = b.mid(j, ej - j).toULongLong();
            if (x != y)
                return x < y;
            i = ei;
            j = ej;
            continue;
        }
        const int c = QString::compare(a.mid(i, 1), b.mid(j, 1), Qt::CaseInsensitive);
        if (c != 0)
            return c < 0;
        ++i;
        ++j;
    }
    return a.size() - i < b.size() - j;
}

// The name of a group label: what follows its last ". ".
QString groupName(const QString &label)
{
    const qsizetype dot = label.lastIndexOf(QLatin1String(". "));
    return dot < 0 ? label : label.mid(dot + 2);
}

} // namespace

VUTesterSettingParameter::~VUTesterSettingParameter() = default;

QString VUTesterSettingParameter::name() const
{
    qFatal("VUTesterSettingParameter: a parameter must give its name");
}

QString VUTesterSettingParameter::key() const
{
    qFatal("VUTesterSettingParameter: a parameter must give its key");
}

const VUTesterSettingParameter::Description &VUTesterSettingParameter::description() const
{
    if (!m_description)
        m_description = Description{name(), key(), values(), groupedValues(), valueTitles(), allowStringEdit()};
    return *m_description;
}

QString VUTesterSettingParameter::titleForValue(const QVariant &value) const
{
    const auto &titles = description().valueTitles;
    const auto it = titles.find(value.toString());
    return it != titles.end() ? *it : value.toString();
}

void VUTesterSettingParameter::setSettings(TWSettings *settings)
{
    m_settings = settings;
}

bool VUTesterSettingParameter::sameValue(const QVariant &a, const QVariant &b)
{
    const auto isNumber = [](const QVariant &v) { return v.typeId() != QMetaType::QString && v.canConvert<double>(); };
    if (isNumber(a) && isNumber(b))
        return a.toDouble() == b.toDouble();
    return a == b;
}

QVariant VUTesterSettingParameter::currentValue() const
{
    return m_settings ? m_settings->valueForKey(description().key) : QVariant();
}

void VUTesterSettingParameter::setCurrentValue(const QVariant &value)
{
    if (m_settings)
        m_settings->setValueForKey(value, description().key);
}

bool VUTesterSettingParameter::isGroupLabel(const QVariant &value) const
{
    return value.typeId() == QMetaType::QString && description().groupedValues.contains(value.toString());
}

QStringList VUTesterSettingParameter::sortedGroupLabels() const
{
    QStringList labels = description().groupedValues.keys();
    std::stable_sort(labels.begin(), labels.end(), [](const QString &a, const QString &b) { return QString::compare(a, b, Qt::CaseInsensitive) < 0; });
    return labels;
}

QVariant VUTesterSettingParameter::defaultValue() const
{
    if (const auto &values = _values())
        return values->isEmpty() ? QVariant() : values->first();
    const QStringList labels = sortedGroupLabels();
    if (labels.isEmpty())
        return QVariant();
    // Without a default group the first group as a whole is the default.
    if (labels.first() == kDefaultGroupLabel)
        return _groupedValues().value(kDefaultGroupLabel).value(0);
    return labels.first();
}

void VUTesterSettingParameter::setDefaultValues()
{
    setCurrentValue(defaultValue());
}

QVariantList VUTesterSettingParameter::_possibleValues() const
{
    if (const auto &values = _values())
        return *values;
    QVariantList all;
    for (const QString &label : sortedGroupLabels())
        for (const QVariant &value : _groupedValues().value(label))
            if (std::none_of(all.begin(), all.end(), [&](const QVariant &seen) { return sameValue(seen, value); }))
                all.append(value);
    return all;
}

QVariantList VUTesterSettingParameter::valuesToEnumerate() const
{
    const QVariant current = currentValue();
    if (isGroupLabel(current))
        return _groupedValues().value(current.toString());
    return {current};
}

std::vector<TWRowPtr> VUTesterSettingParameter::rows() const
{
    const Description &d = description();
    QVariantList values;
    QStringList titles;
    if (d.values) {
        for (const QVariant &value : *d.values) {
            values << value;
            titles << titleForValue(value);
        }
    } else {
        QStringList labels = d.groupedValues.keys();
        std::stable_sort(labels.begin(), labels.end(), naturalLess);
        for (const QString &label : labels) {
            if (label != kDefaultGroupLabel) {
                values << label;
                titles << groupName(label).toUpper();
            }
            for (const QVariant &value : d.groupedValues.value(label)) {
                values << value;
                titles << QStringLiteral("   %1").arg(titleForValue(value));
            }
        }
    }
    auto choice = TWChoiceRow::rowWithTitle(d.name, d.key);
    choice->possibleValues(values, titles);
    std::vector<TWRowPtr> rows{choice};
    if (d.allowStringEdit) {
        auto edit = TWEditStringRow::rowWithTitle(d.name, d.key);
        const QStringList labels = d.groupedValues.keys();
        const QString key = d.key;
        edit->condition([labels, key](const TWSettings *settings) {
            const QVariant value = settings->valueForKey(key);
            return !(value.typeId() == QMetaType::QString && labels.contains(value.toString()));
        });
        rows.push_back(edit);
    }
    return rows;
}

QList<ui::BarButtonItem *> VUTesterSettingParameter::barButtonItems()
{
    if (isGroupLabel(currentValue()))
        return {};
    return {new ui::BarButtonItem(QStringLiteral("◀"), [this](ui::BarButtonItem *item) { _handlePreviousBarButtonItem(item); }),
            new ui::BarButtonItem(description().name, [this](ui::BarButtonItem *item) { _handlePickBarButtonItem(item); }),
            new ui::BarButtonItem(QStringLiteral("▶"), [this](ui::BarButtonItem *item) { _handleNextBarButtonItem(item); })};
}

qsizetype VUTesterSettingParameter::steppedIndex(qsizetype current, qint64 offset, qsizetype count)
{
    if (current < 0 || count == 0)
        return 0;
    // Wraps at both ends, however large the step.
    return qsizetype(((current + offset) % count + count) % count);
}

void VUTesterSettingParameter::_selectValueWithOffset(qint64 offset)
{
    const QVariantList list = _possibleValues();
    if (list.isEmpty())
        return;
    const QVariant current = currentValue();
    const auto it = std::find_if(list.begin(), list.end(), [&](const QVariant &value) { return sameValue(value, current); });
    setCurrentValue(list[steppedIndex(it == list.end() ? -1 : it - list.begin(), offset, list.size())]);
}

void VUTesterSettingParameter::_handleNextBarButtonItem(ui::BarButtonItem *)
{
    _selectValueWithOffset(1);
}

void VUTesterSettingParameter::_handlePreviousBarButtonItem(ui::BarButtonItem *)
{
    _selectValueWithOffset(-1);
}

void VUTesterSettingParameter::presentPicker(const QStringList &titles, int current, std::function<void(int)> choose)
{
    if (!m_presentingViewController)
        return;
    auto *sheet = new ui::AlertController(QString(), QString(), ui::AlertController::Style::ActionSheet);
    for (int i = 0; i < titles.size(); ++i)
        sheet->addAction({i == current ? QStringLiteral("✓ %1").arg(titles[i]) : titles[i], ui::AlertAction::Style::Default,
                          [choose, i] { choose(i); }});
    sheet->addAction({QStringLiteral("Cancel"), ui::AlertAction::Style::Cancel, {}});
    m_presentingViewController->presentViewController(sheet, true);
}

void VUTesterSettingParameter::_handlePickBarButtonItem(ui::BarButtonItem *)
{
    const QVariantList list = _possibleValues();
    const QVariant current = currentValue();
    QStringList titles;
    int currentIndex = -1;
    for (int i = 0; i < list.size(); ++i) {
        titles << titleForValue(list[i]);
        if (currentIndex < 0 && sameValue(list[i], current))
            currentIndex = i;
    }
    QPointer<TWSettings> settings = m_settings;
    presentPicker(titles, currentIndex, [this, list, settings](int index) {
        if (settings)
            setCurrentValue(list[index]);
    });
}
