#include "review/VUTesterStoryletsGraphStrings.h"

#include "kg/VGBundle.h"
#include "kg/VGGraphFramework.h"

#include <photos/VHAssetCollection.h>

#include <QDir>
#include <QRegularExpression>

VUTesterStoryletsGraphStrings *VUTesterStoryletsGraphStrings::sharedInstance()
{
    static VUTesterStoryletsGraphStrings *const instance = new VUTesterStoryletsGraphStrings;
    return instance;
}

VUTesterStoryletsGraphStrings::VUTesterStoryletsGraphStrings(const QString &frameworkPath)
    : _cachedBundles(32)
{
    const QDir framework(frameworkPath.isEmpty() ? VGGraphFramework::path() : frameworkPath);
    // Direct entries only, hidden ones too.
    const QFileInfoList entries = framework.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries)
        if (entry.suffix() == QLatin1String("lproj"))
            _bundleURLs.insert(entry.completeBaseName(), entry.filePath());
    m_languages = _bundleURLs.keys();
    std::sort(m_languages.begin(), m_languages.end(), [](const QString &a, const QString &b) { return QString::compare(a, b, Qt::CaseInsensitive) < 0; });
}

VUTesterStoryletsGraphStrings::~VUTesterStoryletsGraphStrings() = default;

const QMap<int, QStringList> &VUTesterStoryletsGraphStrings::_categorizedKeys()
{
    static const QMap<int, QStringList> keys = {
        {1, {QStringLiteral("VGBestOfLastMonthsStoryletTitleFormatWithNumberOfMonths %lu"),
             QStringLiteral("VGBestOfLastWeeksStoryletTitleFormatWithNumberOfWeeks %lu"), QStringLiteral("VGBestOfTheYearStoryletTitleFormat")}},
        {2, {QStringLiteral("VGPeopleTitleFormatGenericSocialGroup"), QStringLiteral("VGPeopleTitleFormatMePerson"),
             QStringLiteral("VGSocialGroupFormatTitleCoworkers"), QStringLiteral("VGSocialGroupFormatTitleFamily"),
             QStringLiteral("VGSocialGroupFormatTitleFriends")}},
        {3, {QStringLiteral("VGPeoplePlaceTitleFormatFamilyHome"), QStringLiteral("VGPeoplePlaceFormatHome"), QStringLiteral("VGPeoplePlaceFormatWork"),
             QStringLiteral("VGPlaceStoryletTitleFormatBeach"), QStringLiteral("VGPlaceStoryletTitleFormatCity"),
             QStringLiteral("VGPlaceStoryletTitleFormatMountain"), QStringLiteral("VGPlaceStoryletTitleFormatNature"),
             QStringLiteral("VGPlaceStoryletTitleFormatWater")}},
        {4, {QStringLiteral("VGTripStoryletTypeStringTrip"), QStringLiteral("VGLocationTitleFormatTripWorldTrip")}},
        {5, {QStringLiteral("VGRelativeDateTitleLastWeek"), QStringLiteral("VGRelativeDateTitleLastWeekend"),
             QStringLiteral("VGRelativeDateTitleOnThisDay")}},
        {6, {QStringLiteral("VGGenericStoryletTitle")}},
    };
    return keys;
}

const QStringList &VUTesterStoryletsGraphStrings::keys()
{
    static const QStringList keys = [] {
        QStringList all;
        for (const QStringList &category : _categorizedKeys())
            all += category;
        return all;
    }();
    return keys;
}

QString VUTesterStoryletsGraphStrings::localizedStringForKey(const QString &key, const QString &language) const
{
    VGBundle *bundle = _cachedBundles.object(language);
    if (!bundle) {
        const auto url = _bundleURLs.constFind(language);
        if (url == _bundleURLs.constEnd())
            return QString();
        bundle = new VGBundle(*url);
        _cachedBundles.insert(language, bundle);
    }
    const QString format = bundle->localizedStringForKey(key);
    if (format.isNull())
        return QString();
    return VUTesterFormatWithInteger(format, 3).replace(QLatin1String("\\n"), QLatin1String("\n"));
}

QString VUTesterStoryletsGraphStrings::titleFontNameForKey(const QString &key)
{
    QString font;
    for (auto it = _categorizedKeys().cbegin(); it != _categorizedKeys().cend(); ++it)
        if (!key.isNull() && it->contains(key))
            font = VHAssetCollection::titleFontNameForTitleCategory(it.key());
    return font;
}

QString VUTesterFormatWithInteger(const QString &format, qint64 number)
{
    static const QRegularExpression conversion(QStringLiteral("%(?:%|(?:1\\$)?(?:ll|l|z|j|h|hh|q)?[diu])"));
    QString result;
    qsizetype last = 0;
    for (auto it = conversion.globalMatch(format); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        result += QStringView(format).mid(last, match.capturedStart() - last);
        result += match.captured() == QLatin1String("%%") ? QStringLiteral("%") : QString::number(number);
        last = match.capturedEnd();
    }
    result += QStringView(format).mid(last);
    return result;
}
