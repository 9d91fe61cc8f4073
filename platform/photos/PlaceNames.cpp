#include "PlaceNames.h"

#include "PhotosLogging.h"

#include <QFile>
#include <QRegularExpression>
#include <QVector>

#include <cmath>

namespace photos::detail::PlaceNames {

namespace {

struct City {
    QString name;
    double latitude;
    double longitude;
};

// "+4852" (degrees and minutes) or "+404251" (and seconds), as ISO 6709 writes them in the table.
double parseAngle(const QString &text, int degreeDigits)
{
    const double sign = text.startsWith(QLatin1Char('-')) ? -1 : 1;
    const QString digits = text.mid(1);
    double value = digits.left(degreeDigits).toDouble() + digits.mid(degreeDigits, 2).toDouble() / 60;
    if (digits.size() > degreeDigits + 2)
        value += digits.mid(degreeDigits + 2, 2).toDouble() / 3600;
    return sign * value;
}

QVector<City> loadCities()
{
    QVector<City> cities;
    QFile file(QStringLiteral("/usr/share/zoneinfo/zone1970.tab"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qCWarning(lcPhotos) << "no time-zone table to name places with:" << file.fileName() << file.errorString();
        return cities;
    }
    static const QRegularExpression coordinates(QStringLiteral("^([+-]\\d+)([+-]\\d+)$"));
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QStringList fields = line.split(QLatin1Char('\t'));
        const QRegularExpressionMatch match = fields.size() >= 3 ? coordinates.match(fields[1]) : QRegularExpressionMatch();
        if (!match.hasMatch())
            continue;
        // "America/Argentina/Buenos_Aires" names Buenos Aires.
        QString name = fields[2].section(QLatin1Char('/'), -1).replace(QLatin1Char('_'), QLatin1Char(' '));
        cities.append({name, parseAngle(match.captured(1), 2), parseAngle(match.captured(2), 3)});
    }
    return cities;
}

} // namespace

double distanceKm(double latitude1, double longitude1, double latitude2, double longitude2)
{
    constexpr double kEarthRadiusKm = 6371.0;
    constexpr double kRadians = M_PI / 180;
    const double dLatitude = (latitude2 - latitude1) * kRadians;
    const double dLongitude = (longitude2 - longitude1) * kRadians;
    const double a = std::pow(std::sin(dLatitude / 2), 2)
                     + std::cos(latitude1 * kRadians) * std::cos(latitude2 * kRadians) * std::pow(std::sin(dLongitude / 2), 2);
    return 2 * kEarthRadiusKm * std::asin(std::min(1.0, std::sqrt(a)));
}

QString nameOfPlace(double latitude, double longitude)
{
    static const QVector<City> cities = loadCities();
    const City *nearest = nullptr;
    double nearestKm = kMaximumDistanceKm;
    for (const City &city : cities) {
        const double km = distanceKm(latitude, longitude, city.latitude, city.longitude);
        if (km <= nearestKm) {
            nearest = &city;
            nearestKm = km;
        }
    }
    return nearest ? nearest->name : QString();
}

} // namespace photos::detail::PlaceNames
