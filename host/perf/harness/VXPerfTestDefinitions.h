#pragma once
// The performance tests the host application defines: one scroll test per baseline environment and
// one test per navigation transition. Each definition is a dictionary of strings with "testName"
// and what its test reads:
//   scroll tests       "content" (the environment), "duration" (seconds), "speed" (points per second)
//   transition tests   "transition", "iterations" (push and pop pairs)

#include <QList>
#include <QString>
#include <QVariantMap>

#include <optional>

inline const QString VXPerfTestNameKey = QStringLiteral("testName");
inline const QString VXPerfContentKey = QStringLiteral("content");
inline const QString VXPerfTransitionKey = QStringLiteral("transition");
inline const QString VXPerfDurationKey = QStringLiteral("duration");
inline const QString VXPerfSpeedKey = QStringLiteral("speed");
inline const QString VXPerfIterationsKey = QStringLiteral("iterations");

// In the application's order.
QList<QVariantMap> vexo_testDefinitions();
std::optional<QVariantMap> vexo_testDefinitionNamed(const QString &name);
QStringList vexo_testNames();
