#pragma once
// Names a place as a person would: the nearest principal city of the system's time-zone table
// (the one tzdata keeps, with each zone's city and its coordinates), when it lies close enough to
// stand for where the photos were taken. Offline and the same on every machine with that table.

#include <QString>

namespace photos::detail {

namespace PlaceNames {

// Farther than this from every city, a place has no name.
inline constexpr double kMaximumDistanceKm = 150;

// "Paris", "New York", "Buenos Aires"; empty when no city is near enough or the table is missing.
QString nameOfPlace(double latitude, double longitude);

// Great-circle distance in kilometres.
double distanceKm(double latitude1, double longitude1, double latitude2, double longitude2);

} // namespace PlaceNames

} // namespace photos::detail
