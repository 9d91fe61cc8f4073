#include "filler/VUTesterLibraryFillerSettingsValueCombinationEnumerator.h"

#include <QRandomGenerator>

#include <cmath>

VUTesterLibraryFillerSettingsValueCombinationEnumerator::VUTesterLibraryFillerSettingsValueCombinationEnumerator(
    const VUTesterLibraryFillerSettings *settings)
    : m_settings(std::make_unique<VUTesterLibraryFillerSettings>())
{
    m_settings->copyValuesFrom(settings ? *settings : *VUTesterLibraryFillerSettings::sharedInstance());
    for (const QString &key : settingsEnumerationOrder()) {
        const QVariant value = m_settings->valueForKey(key);
        QVariantList possible;
        VUTesterLibraryFillerSettings::getPossibleValues(&possible, nullptr, key);
        // The integer value decides, so an aspect ratio of 1000.0 or 1001.0 is a sentinel too.
        const qint64 integer = qint64(value.toDouble());
        if (integer == VUTesterLibraryFillerSettings::kEnumerate) {
            m_values.insert(key, possible);
            m_indexes.insert(key, 0);
        } else if (integer != VUTesterLibraryFillerSettings::kRandom) {
            m_values.insert(key, {value});
        } else {
            m_values.insert(key, possible);
        }
    }
    _selectNextLocation();
}

VUTesterLibraryFillerSettingsValueCombinationEnumerator::~VUTesterLibraryFillerSettingsValueCombinationEnumerator() = default;

const QStringList &VUTesterLibraryFillerSettingsValueCombinationEnumerator::settingsEnumerationOrder()
{
    static const QStringList order{QStringLiteral("media"), QStringLiteral("aspectRatio"), QStringLiteral("orientation"),
                                   QStringLiteral("imageOrientation")};
    return order;
}

QVariant VUTesterLibraryFillerSettingsValueCombinationEnumerator::_valueForSetting(const QString &key) const
{
    const QVariantList values = m_values.value(key);
    if (values.isEmpty())
        return m_settings->valueForKey(key);
    const auto index = m_indexes.constFind(key);
    if (index != m_indexes.constEnd())
        return values.at(*index);
    return values.at(int(QRandomGenerator::global()->bounded(quint32(values.size()))));
}

void VUTesterLibraryFillerSettingsValueCombinationEnumerator::nextCombination()
{
    const QStringList &order = settingsEnumerationOrder();
    for (auto key = order.crbegin(); key != order.crend(); ++key) {
        auto index = m_indexes.find(*key);
        if (index == m_indexes.end())
            continue;
        if (*index < m_values.value(*key).size() - 1) {
            ++*index;
            _selectNextLocation();
            return;
        }
        *index = 0;
    }
    _selectNextLocation();
}

qint64 VUTesterLibraryFillerSettingsValueCombinationEnumerator::numberOfAssetsToAdd() const
{
    const qint64 count = m_settings->numberOfAssetsToAdd();
    if (count != VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets)
        return count;
    qint64 combinations = 1;
    for (auto index = m_indexes.constBegin(); index != m_indexes.constEnd(); ++index)
        combinations *= m_values.value(index.key()).size();
    return combinations;
}

qint64 VUTesterLibraryFillerSettingsValueCombinationEnumerator::fillDestination() const { return _valueForSetting(QStringLiteral("fillDestination")).toLongLong(); }
qint64 VUTesterLibraryFillerSettingsValueCombinationEnumerator::media() const { return _valueForSetting(QStringLiteral("media")).toLongLong(); }
qint64 VUTesterLibraryFillerSettingsValueCombinationEnumerator::orientation() const { return _valueForSetting(QStringLiteral("orientation")).toLongLong(); }
double VUTesterLibraryFillerSettingsValueCombinationEnumerator::aspectRatio() const { return double(float(_valueForSetting(QStringLiteral("aspectRatio")).toDouble())); }
qint64 VUTesterLibraryFillerSettingsValueCombinationEnumerator::longSide() const { return _valueForSetting(QStringLiteral("longSide")).toLongLong(); }
qint64 VUTesterLibraryFillerSettingsValueCombinationEnumerator::content() const { return _valueForSetting(QStringLiteral("content")).toLongLong(); }
qint64 VUTesterLibraryFillerSettingsValueCombinationEnumerator::imageOrientation() const { return _valueForSetting(QStringLiteral("imageOrientation")).toLongLong(); }
qint64 VUTesterLibraryFillerSettingsValueCombinationEnumerator::locationRadius() const { return m_settings->locationRadius(); }

void VUTesterLibraryFillerSettingsValueCombinationEnumerator::_selectNextLocation()
{
    const QVariant location = m_settings->location();
    const qint64 radius = m_settings->locationRadius();
    double latitude = 0, longitude = 0;
    if (radius == 0 || !TWLocationFromValue(location, &latitude, &longitude)) {
        m_location = location;
        return;
    }
    QRandomGenerator *random = QRandomGenerator::global();
    const double distance = double(random->bounded(quint64(radius) * 10)) / 10.0;
    const double bearing = double(random->bounded(3600)) / 10.0 * 0.017453292519943295;
    // The offsets are a quarter (latitude) and a half (longitude) of what the distance spans on a
    // sphere of this circumference, without the latitude's cosine: points fall well inside the
    // radius, which is what the filler has always done.
    const double circumference = 40030223.8575236;
    latitude += distance * std::sin(bearing) / circumference * 90.0;
    longitude += distance * std::cos(bearing) / circumference * 180.0;
    m_location = TWLocationValue(latitude, longitude);
}
