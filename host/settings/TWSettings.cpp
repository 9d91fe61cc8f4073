#include "TWSettings.h"

#include "TWModule.h"
#include "TWSettingsArchive.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>
#include <limits>

Q_LOGGING_CATEGORY(lcSettings, "vistra.settings")

struct TWSettings::Slot {
    QString key;
    Kind kind;
    QVariant value;
    TWSettings *child = nullptr;
};

namespace {

QString g_archivePath;

bool isIntegerType(const QVariant &v)
{
    switch (v.typeId()) {
    case QMetaType::Int: case QMetaType::UInt: case QMetaType::LongLong: case QMetaType::ULongLong:
    case QMetaType::Long: case QMetaType::ULong: case QMetaType::Short: case QMetaType::UShort:
        return true;
    default:
        return false;
    }
}

bool isNumberType(const QVariant &v)
{
    return isIntegerType(v) || v.typeId() == QMetaType::Double || v.typeId() == QMetaType::Float;
}

bool toInteger(const QVariant &v, qint64 min, qint64 max, qint64 *out, QString *error)
{
    if (v.typeId() == QMetaType::ULongLong || v.typeId() == QMetaType::ULong) {
        const quint64 u = v.toULongLong();
        if (u > quint64(std::numeric_limits<qint64>::max()) || qint64(u) > max) {
            *error = QStringLiteral("%1 is out of range").arg(u);
            return false;
        }
        *out = qint64(u);
        return true;
    }
    if (isIntegerType(v)) {
        const qint64 i = v.toLongLong();
        if (i < min || i > max) {
            *error = QStringLiteral("%1 is out of range").arg(i);
            return false;
        }
        *out = i;
        return true;
    }
    if (v.typeId() == QMetaType::Double || v.typeId() == QMetaType::Float) {
        const double d = v.toDouble();
        // 2^63 itself does not fit; every double below it that is whole does.
        if (!std::isfinite(d) || d != std::trunc(d) || d < double(min) || d >= 9223372036854775808.0 || d > double(max)) {
            *error = QStringLiteral("%1 is not a whole number in range").arg(d);
            return false;
        }
        *out = qint64(d);
        return true;
    }
    *error = QStringLiteral("expected a whole number");
    return false;
}

QVariant zeroValue(TWSettings::Kind kind)
{
    switch (kind) {
    case TWSettings::Kind::Bool: return false;
    case TWSettings::Kind::Int64: case TWSettings::Kind::Int32: return QVariant::fromValue<qint64>(0);
    case TWSettings::Kind::Double: return 0.0;
    case TWSettings::Kind::String: return QString();
    case TWSettings::Kind::Location: case TWSettings::Kind::Variant: case TWSettings::Kind::Child: return {};
    }
    return {};
}

} // namespace

QVariant TWLocationValue(double latitude, double longitude)
{
    return QVariantMap{{QStringLiteral("latitude"), latitude}, {QStringLiteral("longitude"), longitude}};
}

bool TWLocationFromValue(const QVariant &value, double *latitude, double *longitude)
{
    if (value.typeId() != QMetaType::QVariantMap)
        return false;
    const QVariantMap map = value.toMap();
    const QVariant lat = map.value(QStringLiteral("latitude"));
    const QVariant lon = map.value(QStringLiteral("longitude"));
    if (map.size() != 2 || !isNumberType(lat) || !isNumberType(lon))
        return false;
    const double la = lat.toDouble(), lo = lon.toDouble();
    if (!(la >= -90 && la <= 90 && lo >= -180 && lo <= 180))
        return false;
    *latitude = la;
    *longitude = lo;
    return true;
}

bool TWConvertSettingValue(TWSettings::Kind kind, const QVariant &value, QVariant *converted, QString *error)
{
    QString ignored;
    if (!error)
        error = &ignored;
    switch (kind) {
    case TWSettings::Kind::Bool:
        if (value.typeId() == QMetaType::Bool) {
            *converted = value;
            return true;
        }
        if (isIntegerType(value) && (value.toLongLong() == 0 || value.toLongLong() == 1)) {
            *converted = value.toLongLong() != 0;
            return true;
        }
        *error = QStringLiteral("expected a boolean");
        return false;
    case TWSettings::Kind::Int64:
    case TWSettings::Kind::Int32: {
        const bool is32 = kind == TWSettings::Kind::Int32;
        qint64 i = 0;
        if (value.typeId() == QMetaType::Bool || !toInteger(value, is32 ? std::numeric_limits<qint32>::min() : std::numeric_limits<qint64>::min(),
                                                            is32 ? std::numeric_limits<qint32>::max() : std::numeric_limits<qint64>::max(), &i, error)) {
            if (value.typeId() == QMetaType::Bool || !isNumberType(value))
                *error = QStringLiteral("expected a whole number");
            return false;
        }
        *converted = QVariant::fromValue<qint64>(i);
        return true;
    }
    case TWSettings::Kind::Double:
        if (isNumberType(value)) {
            *converted = value.toDouble();
            return true;
        }
        *error = QStringLiteral("expected a number");
        return false;
    case TWSettings::Kind::String:
        if (value.typeId() == QMetaType::QString) {
            *converted = value;
            return true;
        }
        if (value.isNull()) {
            *converted = QString();
            return true;
        }
        *error = QStringLiteral("expected a text");
        return false;
    case TWSettings::Kind::Location: {
        if (value.isNull()) {
            *converted = QVariant();
            return true;
        }
        double lat = 0, lon = 0;
        if (!TWLocationFromValue(value, &lat, &lon)) {
            *error = QStringLiteral("expected a location (latitude -90..90, longitude -180..180) or nil");
            return false;
        }
        *converted = TWLocationValue(lat, lon);
        return true;
    }
    case TWSettings::Kind::Variant:
        if (value.isNull() || isNumberType(value) || value.typeId() == QMetaType::Bool || value.typeId() == QMetaType::QString
            || value.typeId() == QMetaType::QVariantMap || value.typeId() == QMetaType::QVariantList) {
            *converted = isIntegerType(value) ? QVariant::fromValue<qint64>(value.toLongLong()) : value;
            return true;
        }
        *error = QStringLiteral("unsupported value");
        return false;
    case TWSettings::Kind::Child:
        *error = QStringLiteral("a settings object cannot be replaced");
        return false;
    }
    return false;
}

bool TWParseSettingValue(TWSettings::Kind kind, const QString &text, QVariant *value, QString *error)
{
    const QString t = text.trimmed();
    bool ok = false;
    switch (kind) {
    case TWSettings::Kind::Bool: {
        const QString l = t.toLower();
        if (l == QLatin1String("true") || l == QLatin1String("yes") || l == QLatin1String("on") || l == QLatin1String("1"))
            return TWConvertSettingValue(kind, true, value, error);
        if (l == QLatin1String("false") || l == QLatin1String("no") || l == QLatin1String("off") || l == QLatin1String("0"))
            return TWConvertSettingValue(kind, false, value, error);
        *error = QStringLiteral("expected true or false, not '%1'").arg(text);
        return false;
    }
    case TWSettings::Kind::Int64:
    case TWSettings::Kind::Int32: {
        const qint64 i = t.toLongLong(&ok);
        if (!ok) {
            *error = QStringLiteral("expected a whole number, not '%1'").arg(text);
            return false;
        }
        return TWConvertSettingValue(kind, QVariant::fromValue<qint64>(i), value, error);
    }
    case TWSettings::Kind::Double: {
        const double d = t.toDouble(&ok);
        if (!ok || !std::isfinite(d)) {
            *error = QStringLiteral("expected a number, not '%1'").arg(text);
            return false;
        }
        return TWConvertSettingValue(kind, d, value, error);
    }
    case TWSettings::Kind::String:
        *value = text;
        return true;
    case TWSettings::Kind::Location: {
        if (t.compare(QLatin1String("nil"), Qt::CaseInsensitive) == 0 || t.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0) {
            *value = QVariant();
            return true;
        }
        const QStringList parts = t.split(QLatin1Char(','));
        bool okLat = false, okLon = false;
        const double lat = parts.value(0).trimmed().toDouble(&okLat);
        const double lon = parts.value(1).trimmed().toDouble(&okLon);
        if (parts.size() != 2 || !okLat || !okLon) {
            *error = QStringLiteral("expected LATITUDE,LONGITUDE or nil, not '%1'").arg(text);
            return false;
        }
        return TWConvertSettingValue(kind, TWLocationValue(lat, lon), value, error);
    }
    case TWSettings::Kind::Variant: {
        const qint64 i = t.toLongLong(&ok);
        if (ok)
            return TWConvertSettingValue(kind, QVariant::fromValue<qint64>(i), value, error);
        const double d = t.toDouble(&ok);
        if (ok && std::isfinite(d))
            return TWConvertSettingValue(kind, d, value, error);
        *value = text;
        return true;
    }
    case TWSettings::Kind::Child:
        *error = QStringLiteral("a settings object cannot be set");
        return false;
    }
    return false;
}

QString TWSettingValueText(const QVariant &value)
{
    if (value.isNull())
        return QStringLiteral("nil");
    double lat = 0, lon = 0;
    if (TWLocationFromValue(value, &lat, &lon))
        return QStringLiteral("%1,%2").arg(lat, 0, 'g', 17).arg(lon, 0, 'g', 17);
    if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float)
        return QString::number(value.toDouble(), 'g', 17);
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    if (value.typeId() == QMetaType::QString)
        return value.toString();
    if (value.canConvert<QString>())
        return value.toString();
    return QString::fromUtf8(QJsonDocument::fromVariant(value).toJson(QJsonDocument::Compact));
}

TWSettings::TWSettings(QObject *parent) : QObject(parent) {}

TWSettings::~TWSettings() = default;

QString TWSettings::kindName(Kind kind)
{
    static const char *const names[] = {"bool", "int64", "int32", "double", "string", "location", "value", "settings"};
    return QString::fromLatin1(names[int(kind)]);
}

void TWSettings::declareKey(const QString &key, Kind kind)
{
    if (hasKey(key))
        qFatal("TWSettings: key %s declared twice", qPrintable(key));
    m_keys.push_back({key, kind});
    auto s = std::make_unique<Slot>();
    s->key = key;
    s->kind = kind;
    s->value = zeroValue(kind);
    m_slots.push_back(std::move(s));
}

void TWSettings::declareChild(const QString &key, TWSettings *child)
{
    declareKey(key, Kind::Child);
    child->setParent(this);
    child->m_treeParent = this;
    slot(key)->child = child;
}

const TWSettings::Slot *TWSettings::slot(const QString &key) const
{
    for (const auto &s : m_slots)
        if (s->key == key)
            return s.get();
    return nullptr;
}

TWSettings::Slot *TWSettings::slot(const QString &key)
{
    return const_cast<Slot *>(std::as_const(*this).slot(key));
}

bool TWSettings::hasKey(const QString &key) const
{
    return slot(key) != nullptr;
}

TWSettings::Kind TWSettings::kindOfKey(const QString &key) const
{
    const Slot *s = slot(key);
    return s ? s->kind : Kind::Variant;
}

TWSettings *TWSettings::childSettings(const QString &key) const
{
    const Slot *s = slot(key);
    return s ? s->child : nullptr;
}

QList<TWSettings *> TWSettings::childSettingsList() const
{
    QList<TWSettings *> children;
    for (const auto &s : m_slots)
        if (s->child)
            children << s->child;
    return children;
}

QString TWSettings::keyPath() const
{
    if (!m_treeParent)
        return {};
    for (const auto &s : m_treeParent->m_slots) {
        if (s->child == this) {
            const QString above = m_treeParent->keyPath();
            return above.isEmpty() ? s->key : above + QLatin1Char('.') + s->key;
        }
    }
    return {};
}

TWSettings *TWSettings::parentSettings() const
{
    return m_treeParent;
}

QVariant TWSettings::valueForKey(const QString &key) const
{
    const Slot *s = slot(key);
    if (!s)
        return {};
    if (s->child)
        return QVariant::fromValue<QObject *>(s->child);
    return s->value;
}

bool TWSettings::setValueForKey(const QVariant &value, const QString &key, QString *error)
{
    Slot *s = slot(key);
    if (!s) {
        if (error)
            *error = QStringLiteral("unknown key '%1'").arg(key);
        return false;
    }
    QVariant converted;
    if (!TWConvertSettingValue(s->kind, value, &converted, error))
        return false;
    if (s->value == converted && s->value.typeId() == converted.typeId() && s->value.isNull() == converted.isNull())
        return true;
    s->value = converted;
    Q_EMIT valueChanged(key);
    return true;
}

TWSettings *TWSettings::resolveKeyPath(const QString &keyPath, QString *key)
{
    QStringList parts = keyPath.split(QLatin1Char('.'));
    *key = parts.takeLast();
    TWSettings *node = this;
    for (const QString &part : std::as_const(parts)) {
        node = node->childSettings(part);
        if (!node)
            return nullptr;
    }
    return node->hasKey(*key) ? node : nullptr;
}

TWSettings *TWSettings::settingsForKeyPath(const QString &keyPath)
{
    if (keyPath.isEmpty())
        return this;
    QString key;
    TWSettings *node = resolveKeyPath(keyPath, &key);
    return node ? node->childSettings(key) : nullptr;
}

QVariant TWSettings::valueForKeyPath(const QString &keyPath) const
{
    QString key;
    TWSettings *node = const_cast<TWSettings *>(this)->resolveKeyPath(keyPath, &key);
    return node ? node->valueForKey(key) : QVariant();
}

TWSettings *TWSettings::ownerOfKeyPath(const QString &keyPath, QString *key, QString *error)
{
    TWSettings *node = resolveKeyPath(keyPath, key);
    if (!node && error)
        *error = QStringLiteral("unknown key path '%1'").arg(keyPath);
    return node;
}

bool TWSettings::setValueForKeyPath(const QVariant &value, const QString &keyPath, QString *error)
{
    QString key;
    TWSettings *node = ownerOfKeyPath(keyPath, &key, error);
    return node && node->setValueForKey(value, key, error);
}

bool TWSettings::validateValue(QVariant *value, const QString &key, QString *error) const
{
    QString ignored;
    if (!error)
        error = &ignored;
    const Slot *s = slot(key);
    if (!s) {
        *error = QStringLiteral("unknown key '%1'").arg(key);
        return false;
    }
    QVariant converted;
    if (!TWConvertSettingValue(s->kind, *value, &converted, error))
        return false;
    const std::shared_ptr<TWModule> module = settingsModule();
    const std::vector<const TWRow *> rows = module ? module->rowsEditingKeyPath(key) : std::vector<const TWRow *>();
    if (!rows.empty() && std::none_of(rows.begin(), rows.end(), [&](const TWRow *row) { return row->offersValue(converted); })) {
        QStringList offered;
        for (const TWRow *row : rows)
            offered << row->offeredValuesText();
        const QString shown = converted.typeId() == QMetaType::QString ? QStringLiteral("\"%1\"").arg(converted.toString()) : TWSettingValueText(converted);
        *error = QStringLiteral("%1 is not %2").arg(shown, offered.join(QStringLiteral(" or ")));
        return false;
    }
    *value = converted;
    return true;
}

bool TWSettings::validateAndSetValueForKeyPath(const QVariant &value, const QString &keyPath, QString *error)
{
    QString key;
    TWSettings *node = ownerOfKeyPath(keyPath, &key, error);
    if (!node)
        return false;
    QVariant validated = value;
    return node->validateValue(&validated, key, error) && node->setValueForKey(validated, key, error);
}

bool TWSettings::boolValue(const QString &key) const { return valueForKey(key).toBool(); }
qint64 TWSettings::int64Value(const QString &key) const { return valueForKey(key).toLongLong(); }
double TWSettings::doubleValue(const QString &key) const { return valueForKey(key).toDouble(); }
QString TWSettings::stringValue(const QString &key) const { return valueForKey(key).toString(); }

void TWSettings::setValue(const QString &key, const QVariant &value)
{
    QString error;
    if (!setValueForKey(value, key, &error))
        qFatal("TWSettings: cannot set %s: %s", qPrintable(key), qPrintable(error));
}

void TWSettings::setDefaultValues()
{
    for (const auto &s : m_slots)
        if (!s->child && archiveValueForKey(s->key).isValid())
            setValue(s->key, zeroValue(s->kind));
}

void TWSettings::restoreDefaultValuesRecursively()
{
    setDefaultValues();
    for (TWSettings *child : childSettingsList())
        child->restoreDefaultValuesRecursively();
}

void TWSettings::copyValuesFrom(const TWSettings &other)
{
    if (other.metaObject() != metaObject())
        qFatal("TWSettings: cannot copy a %s into a %s", other.metaObject()->className(), metaObject()->className());
    for (const auto &s : other.m_slots)
        if (!s->child)
            setValue(s->key, s->value);
}

QVariant TWSettings::archiveValueForKey(const QString &key) const
{
    const Slot *s = slot(key);
    if (!s || s->child)
        return {};
    // Nil locations and values are stored as JSON null so that clearing one survives a restart.
    if (s->value.isNull())
        return QVariant::fromValue(nullptr);
    return s->value;
}

void TWSettings::applyArchiveValue(const QVariant &value, const QString &key)
{
    QString error;
    const QVariant v = value.typeId() == QMetaType::Nullptr ? QVariant() : value;
    if (!validateAndSetValueForKeyPath(v, key, &error))
        qCWarning(lcSettings).noquote() << "skipping stored value for" << (keyPath().isEmpty() ? key : keyPath() + QLatin1Char('.') + key) << ":" << error;
}

void TWSettings::collectArchive(const QString &prefix, QJsonObject *archive) const
{
    for (const auto &s : m_slots) {
        const QString path = prefix + s->key;
        if (s->child) {
            s->child->collectArchive(path + QLatin1Char('.'), archive);
            continue;
        }
        const QVariant v = archiveValueForKey(s->key);
        if (!v.isValid())
            continue;
        archive->insert(path, v.typeId() == QMetaType::Nullptr ? QJsonValue(QJsonValue::Null) : QJsonValue::fromVariant(v));
    }
}

QJsonObject TWSettings::archive() const
{
    QJsonObject result;
    collectArchive(QString(), &result);
    return result;
}

void TWSettings::applyArchive(const QJsonObject &archive)
{
    for (auto it = archive.begin(); it != archive.end(); ++it) {
        QString key;
        TWSettings *node = resolveKeyPath(it.key(), &key);
        // Keys of settings that no longer exist are dropped quietly on the next save.
        if (!node || node->kindOfKey(key) == Kind::Child)
            continue;
        node->applyArchiveValue(it.value().isNull() ? QVariant::fromValue(nullptr) : it.value().toVariant(), key);
    }
}

QString TWSettings::archivePath()
{
    if (!g_archivePath.isEmpty())
        return g_archivePath;
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/settings.json");
}

void TWSettings::setArchivePath(const QString &path)
{
    g_archivePath = path;
}

bool TWSettings::save(QString *error) const
{
    const TWSettings *root = this;
    while (root->m_treeParent)
        root = root->m_treeParent;
    return TWSettingsArchive(archivePath()).write(root->archive(), error);
}

void TWSettings::loadArchive()
{
    QJsonObject stored;
    if (TWSettingsArchive(archivePath()).read(&stored))
        applyArchive(stored);
}
