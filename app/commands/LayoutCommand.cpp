// vistra-tester layout GENERATOR --items N --width W [--height H] [--key K] [--kinds LIST]
//                     [--weights LIST] [--json]
// Prints the geometries one of the layouts playground's generators makes of N items.

#include "../Commands.h"
#include "JsonOutput.h"
#include "MediaOptions.h"

#include <layouts/VUTesterLayoutGeneratorPlaygroundSettings.h>

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonObject>
#include <QTextStream>

#include <cmath>

namespace app {
namespace {

constexpr const char *kName = "layout";
// Enough for any grid a screen shows; more only costs memory.
constexpr double kMaximumItems = 1000000;
constexpr double kMaximumExtent = 1000000;

struct Generator {
    const char *name;
    VXLayoutGeneratorFactory (*factory)();
};

const Generator kGenerators[] = {
    {"explore", &VUTesterExploreLayoutSettings::layoutGeneratorFactory},
    {"latticer", &VUTesterLatticerPlaygroundSettings::layoutGeneratorFactory},
    {"years-months", &VUTesterYearsMonthsLayoutsSettings::layoutGeneratorFactory},
};

QString generatorNames()
{
    QStringList names;
    for (const Generator &generator : kGenerators)
        names << QString::fromLatin1(generator.name);
    return names.join(QStringLiteral(", "));
}

// "a,b,c": one value per item from the first, at most `count` of them.
bool splitList(const QString &option, const QString &text, qint64 count, QStringList *values, QString *message)
{
    *values = text.split(QLatin1Char(','));
    if (values->size() > count) {
        *message = QStringLiteral("--%1 lists %2 values for %3 items").arg(option).arg(values->size()).arg(count);
        return false;
    }
    return true;
}

QString number(double value)
{
    return QString::number(value, 'g', 10);
}

int help()
{
    QTextStream(stdout) << "usage: vistra-tester layout GENERATOR --items N --width W [--height H] [--key K]\n"
                           "                             [--kinds LIST] [--weights LIST] [--json]\n\n"
                           "Prints what a layouts playground generator makes of N items in a width: one line per\n"
                           "item with its index (from 0), centre and size, after a line with the content size.\n\n"
                           "GENERATOR  " << generatorNames() << "\n"
                           "--items N       how many items (0 to " << kMaximumItems << ")\n"
                           "--width W       the reference width filled, in points\n"
                           "--height H      the reference height (default: the width)\n"
                           "--key K         the key item, counting from 1 as the Key Item setting does; 0, the\n"
                           "                default, for none\n"
                           "--kinds LIST    item kinds, comma-separated from the first item: 0 square (300 x 300),\n"
                           "                1 portrait (300 x 400), 2 landscape (400 x 300), 3 pano (1000 x 300),\n"
                           "                4 vertical pano (300 x 1000); items not listed are squares\n"
                           "--weights LIST  item weights, comma-separated from the first item; items not listed\n"
                           "                weigh 0\n"
                           "--json          one object: {\"generator\", \"contentSize\": [w, h],\n"
                           "                \"items\": [{\"index\", \"center\": [x, y], \"size\": [w, h]}]}\n";
    return ExitOk;
}

} // namespace

int runLayoutCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const auto value = [](const char *name, const char *valueName) {
        return QCommandLineOption(QString::fromLatin1(name), QString(), QString::fromLatin1(valueName));
    };
    parser.addOptions({value("items", "N"), value("width", "W"), value("height", "H"), value("key", "K"), value("kinds", "LIST"),
                       value("weights", "LIST"), QCommandLineOption(QStringLiteral("json")), QCommandLineOption(QStringLiteral("help"))});
    if (!parser.parse(QStringList{QString::fromLatin1(kName)} + arguments))
        return usageError(kName, parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        return help();
    for (const QString &option : parser.optionNames())
        if (parser.optionNames().count(option) > 1)
            return usageError(kName, QStringLiteral("--%1 is given twice").arg(option));
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 1)
        return usageError(kName, QStringLiteral("give exactly one GENERATOR (%1)").arg(generatorNames()));
    const Generator *generator = nullptr;
    for (const Generator &candidate : kGenerators)
        if (positional.first() == QLatin1String(candidate.name))
            generator = &candidate;
    if (!generator)
        return usageError(kName, QStringLiteral("unknown generator '%1' (%2)").arg(positional.first(), generatorNames()));
    for (const char *required : {"items", "width"})
        if (!parser.isSet(QString::fromLatin1(required)))
            return usageError(kName, QStringLiteral("--%1 is required").arg(QString::fromLatin1(required)));

    QString message;
    double items = 0, width = 0, height = 0, key = 0;
    const NumberRange extent{0, kMaximumExtent, true, false};
    if (!parseNumberOption(QStringLiteral("items"), parser.value(QStringLiteral("items")), {0, kMaximumItems, false, true}, &items, &message)
        || !parseNumberOption(QStringLiteral("width"), parser.value(QStringLiteral("width")), extent, &width, &message))
        return usageError(kName, message);
    height = width;
    if (parser.isSet(QStringLiteral("height")) && !parseNumberOption(QStringLiteral("height"), parser.value(QStringLiteral("height")), extent, &height, &message))
        return usageError(kName, message);
    if (parser.isSet(QStringLiteral("key")) && !parseNumberOption(QStringLiteral("key"), parser.value(QStringLiteral("key")), {0, items, false, true}, &key, &message))
        return usageError(kName, message);
    const auto count = qint64(items);

    std::vector<VXLayoutItem> layoutItems(static_cast<size_t>(count), VXLayoutItem(VUTesterLayoutInput::sizeForKind(0), 0));
    QStringList values;
    if (parser.isSet(QStringLiteral("kinds"))) {
        if (!splitList(QStringLiteral("kinds"), parser.value(QStringLiteral("kinds")), count, &values, &message))
            return usageError(kName, message);
        for (qsizetype i = 0; i < values.size(); ++i) {
            double kind = 0;
            if (!parseNumberOption(QStringLiteral("kinds"), values[i].trimmed(), {0, 4, false, true}, &kind, &message))
                return usageError(kName, message);
            layoutItems[size_t(i)] = VXLayoutItem(VUTesterLayoutInput::sizeForKind(qint64(kind)), 0);
        }
    }
    if (parser.isSet(QStringLiteral("weights"))) {
        if (!splitList(QStringLiteral("weights"), parser.value(QStringLiteral("weights")), count, &values, &message))
            return usageError(kName, message);
        for (qsizetype i = 0; i < values.size(); ++i) {
            bool ok = false;
            const double weight = values[i].trimmed().toDouble(&ok);
            if (!ok || !std::isfinite(weight))
                return usageError(kName, QStringLiteral("--weights wants numbers (got '%1')").arg(values[i]));
            layoutItems[size_t(i)] = VXLayoutItem(layoutItems[size_t(i)].size(), weight);
        }
    }

    const std::unique_ptr<VXLayoutGenerator> layout = generator->factory()(QSizeF(width, height));
    layout->setItemCount(count);
    layout->setKeyItemIndex(key >= 1 ? qint64(key) - 1 : VXNotFound);
    layout->setItemLayoutInfoBlock([&layoutItems](qint64 index) { return layoutItems[size_t(index)]; });
    std::vector<VXLayoutGeometry> geometries(static_cast<size_t>(count));
    layout->getGeometries(geometries.data(), {0, layout->numberOfGeometriesWithKind(VXLayoutGeometryKindItem)}, VXLayoutGeometryKindItem);
    const QSizeF content = layout->size();

    QTextStream out(stdout);
    if (parser.isSet(QStringLiteral("json"))) {
        QJsonArray list;
        for (qint64 i = 0; i < count; ++i) {
            const VXLayoutGeometry &g = geometries[size_t(i)];
            list.append(QJsonObject{{QStringLiteral("index"), i},
                                    {QStringLiteral("center"), QJsonArray{g.center.x(), g.center.y()}},
                                    {QStringLiteral("size"), QJsonArray{g.size.width(), g.size.height()}}});
        }
        writeJsonObject(out, QJsonObject{{QStringLiteral("generator"), QString::fromLatin1(generator->name)},
                                         {QStringLiteral("contentSize"), QJsonArray{content.width(), content.height()}},
                                         {QStringLiteral("items"), list}});
        return ExitOk;
    }
    out << "content size " << number(content.width()) << " x " << number(content.height()) << '\n';
    for (qint64 i = 0; i < count; ++i) {
        const VXLayoutGeometry &g = geometries[size_t(i)];
        out << i << ": center " << number(g.center.x()) << ", " << number(g.center.y()) << "  size " << number(g.size.width()) << " x "
            << number(g.size.height()) << '\n';
    }
    return ExitOk;
}

} // namespace app
