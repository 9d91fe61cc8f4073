#include "VXPerfTestDefinitions.h"

#include <QStringList>

namespace {

struct Definition {
    const char *name;
    const char *key; // "content" or "transition"
};

// Scroll tests: the environment's name is the test's. The baselines come first, then the real
// components they are measured against.
constexpr Definition kDefinitions[] = {
    {"NullScrollView", "content"},
    {"NullCollectionView", "content"},
    {"NullTilingController", "content"},
    {"VistraKitSampleGrid", "content"},
    {"CurioStressCollection", "content"},
    {"DefaultNavigation", "transition"},
    {"CrossfadeNavigation", "transition"},
};

} // namespace

QList<QVariantMap> vexo_testDefinitions()
{
    QList<QVariantMap> definitions;
    for (const Definition &d : kDefinitions) {
        const QString name = QString::fromLatin1(d.name);
        QVariantMap definition{{VXPerfTestNameKey, name}, {QString::fromLatin1(d.key), name}};
        if (definition.contains(VXPerfContentKey)) {
            definition.insert(VXPerfDurationKey, QStringLiteral("4"));
            definition.insert(VXPerfSpeedKey, QStringLiteral("2500"));
        } else {
            definition.insert(VXPerfIterationsKey, QStringLiteral("5"));
        }
        definitions << definition;
    }
    return definitions;
}

std::optional<QVariantMap> vexo_testDefinitionNamed(const QString &name)
{
    for (const QVariantMap &definition : vexo_testDefinitions())
        if (definition.value(VXPerfTestNameKey).toString() == name)
            return definition;
    return std::nullopt;
}

QStringList vexo_testNames()
{
    QStringList names;
    for (const QVariantMap &definition : vexo_testDefinitions())
        names << definition.value(VXPerfTestNameKey).toString();
    return names;
}
