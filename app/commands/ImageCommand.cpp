// vistra-tester image KIND: renders one image generator to a PNG file, headless.

#include "Commands.h"
#include "commands/MediaOptions.h"

#include <media/VUTesterBitmapImageGenerator.h>
#include <media/VUTesterConcentricRectsImageGenerator.h>
#include <media/VUTesterFractalImageGenerator.h>
#include <media/VUTesterLayeredImageGenerator.h>
#include <media/VUTesterOrientedImageGenerator.h>
#include <media/VUTesterRadialPatternImageGenerator.h>
#include <media/VUTesterSolidColorImageGenerator.h>
#include <media/VUTesterWatermarkImageGenerator.h>

#include <QCommandLineParser>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

#include <cmath>
#include <stdexcept>

namespace app {
namespace {

constexpr const char *kName = "image";

struct Kind {
    const char *name;
    QStringList options; // the generator's own flags
};

const Kind kKinds[] = {
    {"checkerboard", {}},
    {"radial", {"color", "background-color", "sectors", "phase"}},
    {"concentric", {"color"}},
    {"solid", {"color", "border-color", "border-size"}},
    {"watermark", {"text", "color", "font-size", "location"}},
    {"layered", {"color", "background-color", "sectors", "phase", "text", "font-size"}},
    {"fractal", {"center", "radius", "iterations", "scheme"}},
};

// Bad values end the command with a usage error through this exception.
struct BadValue : std::runtime_error {
    using std::runtime_error::runtime_error;
};

graphics::Color colorValue(const QCommandLineParser &parser, const QString &option)
{
    const graphics::Color color = graphics::Color::fromName(parser.value(option));
    if (!color.isValid())
        throw BadValue(QStringLiteral("--%1: '%2' is not a colour name or #RRGGBB").arg(option, parser.value(option)).toStdString());
    return color;
}

double doubleValue(const QCommandLineParser &parser, const QString &option)
{
    bool ok = false;
    const double value = parser.value(option).toDouble(&ok);
    if (!ok || !std::isfinite(value))
        throw BadValue(QStringLiteral("--%1: '%2' is not a number").arg(option, parser.value(option)).toStdString());
    return value;
}

qint64 integerValue(const QCommandLineParser &parser, const QString &option, qint64 min, qint64 max)
{
    bool ok = false;
    const qint64 value = parser.value(option).toLongLong(&ok);
    if (!ok || value < min || value > max)
        throw BadValue(QStringLiteral("--%1: '%2' is not a whole number from %3 to %4")
                           .arg(option, parser.value(option)).arg(min).arg(max).toStdString());
    return value;
}

QSizeF sizeValue(const QCommandLineParser &parser, const QString &option, int minimum)
{
    QSizeF size;
    QString message;
    if (!parseSizeOption(option, parser.value(option), minimum, &size, &message))
        throw BadValue(message.toStdString());
    return size;
}

graphics::StyledText label(const QCommandLineParser &parser, double defaultSize)
{
    graphics::TextAttributes attributes;
    attributes.fontSize = parser.isSet(QStringLiteral("font-size")) ? doubleValue(parser, QStringLiteral("font-size")) : defaultSize;
    if (attributes.fontSize <= 0 || attributes.fontSize > 2000)
        throw BadValue("--font-size: must be above 0 and at most 2000");
    if (parser.isSet(QStringLiteral("color")))
        attributes.foregroundColor = colorValue(parser, QStringLiteral("color"));
    return graphics::StyledText(parser.value(QStringLiteral("text")), attributes);
}

std::shared_ptr<VUTesterRadialPatternImageGenerator> radial(const QCommandLineParser &parser)
{
    auto generator = std::make_shared<VUTesterRadialPatternImageGenerator>();
    if (parser.isSet(QStringLiteral("color")))
        generator->setColor(colorValue(parser, QStringLiteral("color")));
    if (parser.isSet(QStringLiteral("background-color")))
        generator->setBackgroundColor(colorValue(parser, QStringLiteral("background-color")));
    if (parser.isSet(QStringLiteral("sectors")))
        generator->setNumberOfSectors(integerValue(parser, QStringLiteral("sectors"), 0, 100000));
    if (parser.isSet(QStringLiteral("phase")))
        generator->setPhase(doubleValue(parser, QStringLiteral("phase")));
    return generator;
}

VUTesterImageGeneratorPtr makeGenerator(const QString &kind, const QCommandLineParser &parser)
{
    if (kind == QLatin1String("checkerboard"))
        return std::make_shared<VUTesterBitmapImageGenerator>();
    if (kind == QLatin1String("radial"))
        return radial(parser);
    if (kind == QLatin1String("concentric")) {
        auto generator = std::make_shared<VUTesterConcentricRectsImageGenerator>();
        if (parser.isSet(QStringLiteral("color")))
            generator->setRectsColor(colorValue(parser, QStringLiteral("color")));
        return generator;
    }
    if (kind == QLatin1String("solid")) {
        auto generator = std::make_shared<VUTesterSolidColorImageGenerator>();
        if (parser.isSet(QStringLiteral("color")))
            generator->setColor(colorValue(parser, QStringLiteral("color")));
        if (parser.isSet(QStringLiteral("border-color")))
            generator->setBorderColor(colorValue(parser, QStringLiteral("border-color")));
        if (parser.isSet(QStringLiteral("border-size")))
            generator->setBorderSize(sizeValue(parser, QStringLiteral("border-size"), 0));
        return generator;
    }
    if (kind == QLatin1String("watermark")) {
        auto generator = std::make_shared<VUTesterWatermarkImageGenerator>();
        generator->setWatermarkAttributedString(label(parser, 48));
        if (parser.isSet(QStringLiteral("location")))
            generator->setWatermarkLocation(integerValue(parser, QStringLiteral("location"), 0, 1));
        return generator;
    }
    if (kind == QLatin1String("layered")) {
        auto text = std::make_shared<VUTesterWatermarkImageGenerator>();
        text->setWatermarkAttributedString(label(parser, 96));
        auto generator = std::make_shared<VUTesterLayeredImageGenerator>();
        generator->setImageGenerators({radial(parser), text});
        return generator;
    }
    auto generator = std::make_shared<VUTesterFractalImageGenerator>();
    if (parser.isSet(QStringLiteral("center"))) {
        const QStringList parts = parser.value(QStringLiteral("center")).split(QLatin1Char(','));
        bool okX = false, okY = false;
        const double x = parts.size() == 2 ? parts[0].toDouble(&okX) : 0;
        const double y = parts.size() == 2 ? parts[1].toDouble(&okY) : 0;
        if (!okX || !okY || !std::isfinite(x) || !std::isfinite(y))
            throw BadValue(QStringLiteral("--center: '%1' is not X,Y").arg(parser.value(QStringLiteral("center"))).toStdString());
        generator->setCenterX(x);
        generator->setCenterY(y);
    }
    if (parser.isSet(QStringLiteral("radius"))) {
        const double radius = doubleValue(parser, QStringLiteral("radius"));
        if (radius <= 0)
            throw BadValue("--radius: must be above 0");
        generator->setInnerRadius(radius);
    }
    if (parser.isSet(QStringLiteral("iterations")))
        generator->setMaxIterations(integerValue(parser, QStringLiteral("iterations"), 1, 1000000));
    if (parser.isSet(QStringLiteral("scheme")))
        generator->setFractalColorScheme(integerValue(parser, QStringLiteral("scheme"), 0, 1));
    return generator;
}

const Kind *findKind(const QString &name)
{
    for (const Kind &kind : kKinds)
        if (name == QLatin1String(kind.name))
            return &kind;
    return nullptr;
}

QString kindNames()
{
    QStringList names;
    for (const Kind &kind : kKinds)
        names << QString::fromLatin1(kind.name);
    return names.join(QStringLiteral(", "));
}

} // namespace

int runImageCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const auto value = [](const char *name, const char *help, const char *valueName) {
        return QCommandLineOption(QString::fromLatin1(name), QString::fromLatin1(help), QString::fromLatin1(valueName));
    };
    parser.addOptions({
        value("size", "image size in whole pixels, each side 1 to 15000 (default 400x300)", "WxH"),
        QCommandLineOption({QStringLiteral("o"), QStringLiteral("output")}, QStringLiteral("the PNG file to write (FILE.png)"), QStringLiteral("FILE")),
        value("orientation", "wrap in an oriented generator: Up, Down, Left, Right, Up Mirrored, ...", "LABEL"),
        QCommandLineOption(QStringLiteral("upright"), QStringLiteral("write the pixels with the orientation applied")),
        QCommandLineOption(QStringLiteral("force"), QStringLiteral("overwrite an existing output file")),
        QCommandLineOption(QStringLiteral("help"), QStringLiteral("show this help")),
        value("color", "main colour: a name or #RRGGBB", "COLOR"),
        value("background-color", "radial background colour", "COLOR"),
        value("sectors", "radial sector count", "N"),
        value("phase", "radial phase, in sectors", "X"),
        value("border-color", "solid border colour", "COLOR"),
        value("border-size", "solid border width and height", "WxH"),
        value("text", "watermark or label text", "TEXT"),
        value("font-size", "text size in pixels", "N"),
        value("location", "watermark location: 0 centred, 1 top left", "N"),
        value("center", "fractal centre in the plane", "X,Y"),
        value("radius", "fractal inner radius", "R"),
        value("iterations", "fractal iteration limit", "N"),
        value("scheme", "fractal colour scheme: 0 black and white, 1 ramp", "N"),
    });
    if (!parser.parse(QStringList{QStringLiteral("image")} + arguments))
        return usageError(kName, parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << "usage: vistra-tester image KIND [options] -o FILE.png\nKINDS: " << kindNames() << "\n\n"
                            << parser.helpText().section(QLatin1Char('\n'), 2);
        return ExitOk;
    }
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 1)
        return usageError(kName, QStringLiteral("give exactly one KIND (%1)").arg(kindNames()));
    const Kind *kind = findKind(positional.first());
    if (!kind)
        return usageError(kName, QStringLiteral("unknown kind '%1' (%2)").arg(positional.first(), kindNames()));
    const QStringList common{QStringLiteral("size"), QStringLiteral("o"), QStringLiteral("orientation"),
                             QStringLiteral("upright"), QStringLiteral("force")};
    for (const QString &option : parser.optionNames())
        if (!common.contains(option) && option != QLatin1String("output") && !kind->options.contains(option))
            return usageError(kName, QStringLiteral("--%1 does not apply to %2").arg(option, positional.first()));
    const QString output = parser.value(QStringLiteral("o"));
    if (output.isEmpty())
        return usageError(kName, QStringLiteral("give the output file with -o FILE.png"));
    QString message;
    if (!checkOutputSuffix(output, {QStringLiteral("png")}, &message))
        return usageError(kName, message);
    if (QFileInfo::exists(output) && !parser.isSet(QStringLiteral("force")))
        return usageError(kName, QStringLiteral("%1 exists; pass --force to overwrite it").arg(output));

    VUTesterImageGeneratorPtr generator;
    try {
        generator = makeGenerator(positional.first(), parser);
        generator->setImageSize(parser.isSet(QStringLiteral("size")) ? sizeValue(parser, QStringLiteral("size"), 1)
                                                                      : QSizeF(400, 300));
    } catch (const BadValue &error) {
        return usageError(kName, QString::fromStdString(error.what()));
    }
    if (parser.isSet(QStringLiteral("orientation"))) {
        graphics::ImageOrientation orientation;
        if (!graphics::imageOrientationFromLabel(parser.value(QStringLiteral("orientation")), &orientation))
            return usageError(kName, QStringLiteral("--orientation: '%1' is not one of Up, Down, Left, Right, Up Mirrored, "
                                                    "Down Mirrored, Left Mirrored, Right Mirrored")
                                         .arg(parser.value(QStringLiteral("orientation"))));
        auto oriented = std::make_shared<VUTesterOrientedImageGenerator>();
        oriented->setImageGenerator(generator);
        oriented->setImageOrientation(int64_t(orientation));
        generator = oriented;
    }

    const graphics::ImagePtr image = generator->generatedImage();
    if (!image)
        return failure(kName, QStringLiteral("the generator drew no image"));
    const QImage pixels = parser.isSet(QStringLiteral("upright")) ? image->uprightPixels() : image->pixels();
    QSaveFile file(output);
    if (!file.open(QIODevice::WriteOnly) || !pixels.save(&file, "PNG") || !file.commit())
        return failure(kName, QStringLiteral("couldn't write %1: %2").arg(output, file.errorString()));
    return ExitOk;
}

} // namespace app
