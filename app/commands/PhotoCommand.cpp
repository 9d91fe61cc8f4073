// vistra-tester photo --size WxH [--content solid|concentric|radial] [--color C]
//     [--orientation LABEL] [--date "YYYY-MM-DD HH:MM:SS" | --no-date] [--location LAT,LON]
//     [--pairing-id ID] [--force] -o FILE.jpg
// Draws one test picture and writes it through the photo writer.

#include "Commands.h"
#include "commands/MediaOptions.h"

#include "media/VUTesterConcentricRectsImageGenerator.h"
#include "media/VUTesterOrientedImageGenerator.h"
#include "media/VUTesterPhotoWriter.h"
#include "media/VUTesterRadialPatternImageGenerator.h"
#include "media/VUTesterSolidColorImageGenerator.h"

#include <graphics/ImageOrientation.h>
#include <imageio/PhotoMetadata.h>

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

namespace app {
namespace {

const char *const kPhoto = "photo";

VUTesterImageGeneratorPtr contentGenerator(const QString &content, const graphics::Color &color)
{
    if (content == QLatin1String("solid")) {
        auto solid = std::make_shared<VUTesterSolidColorImageGenerator>();
        solid->setColor(color.isValid() ? color : graphics::Color::lightGray());
        return solid;
    }
    if (content == QLatin1String("concentric")) {
        auto rects = std::make_shared<VUTesterConcentricRectsImageGenerator>();
        rects->setRectsColor(color.isValid() ? color : graphics::Color::black());
        return rects;
    }
    if (content == QLatin1String("radial")) {
        auto radial = std::make_shared<VUTesterRadialPatternImageGenerator>();
        if (color.isValid())
            radial->setColor(color);
        return radial;
    }
    return nullptr;
}

bool parseLocation(const QString &text, VUTesterLocation *location)
{
    const QStringList parts = text.split(QLatin1Char(','));
    bool latitudeOk = false, longitudeOk = false;
    if (parts.size() == 2) {
        location->latitude = parts[0].trimmed().toDouble(&latitudeOk);
        location->longitude = parts[1].trimmed().toDouble(&longitudeOk);
    }
    return latitudeOk && longitudeOk && std::abs(location->latitude) <= 90.0 && std::abs(location->longitude) <= 180.0;
}

} // namespace

int runPhotoCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Draws one test picture and writes it as a JPEG with capture date, location and pairing metadata."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("size"), QStringLiteral("Picture size in whole pixels, each side 1 to 15000."), QStringLiteral("WxH")},
        {QStringLiteral("content"), QStringLiteral("solid, concentric or radial (default radial)."), QStringLiteral("KIND"), QStringLiteral("radial")},
        {QStringLiteral("color"), QStringLiteral("Colour of the content: a name such as red or #RRGGBB."), QStringLiteral("C")},
        {QStringLiteral("orientation"), QStringLiteral("Store the picture turned for this orientation (Up, Down, Left, Right, Up Mirrored, ...)."), QStringLiteral("LABEL")},
        {QStringLiteral("date"), QStringLiteral("Capture date in local time (default: now)."), QStringLiteral("YYYY-MM-DD HH:MM:SS")},
        {QStringLiteral("no-date"), QStringLiteral("Write no capture date.")},
        {QStringLiteral("location"), QStringLiteral("Where the photo was taken, decimal degrees."), QStringLiteral("LAT,LON")},
        {QStringLiteral("pairing-id"), QStringLiteral("Identifier pairing the photo with a movie."), QStringLiteral("ID")},
        {QStringLiteral("force"), QStringLiteral("Replace FILE if it exists.")},
        {QStringLiteral("o"), QStringLiteral("The JPEG file to write."), QStringLiteral("FILE")},
    });
    if (const int status = parseCommandArguments(parser, kPhoto, arguments); status >= 0)
        return status;

    QString message;
    QSizeF size;
    if (!parser.isSet(QStringLiteral("size")))
        return usageError(kPhoto, QStringLiteral("--size WxH is required"));
    if (!parseSizeOption(QStringLiteral("size"), parser.value(QStringLiteral("size")), 1, &size, &message))
        return usageError(kPhoto, message);
    const QString output = parser.value(QStringLiteral("o"));
    if (output.isEmpty())
        return usageError(kPhoto, QStringLiteral("-o FILE.jpg is required"));
    if (!checkOutputSuffix(output, {QStringLiteral("jpg"), QStringLiteral("jpeg")}, &message))
        return usageError(kPhoto, message);
    if (QFileInfo::exists(output) && !parser.isSet(QStringLiteral("force")))
        return usageError(kPhoto, QStringLiteral("%1 exists; use --force to replace it").arg(output));

    graphics::Color color;
    if (parser.isSet(QStringLiteral("color"))) {
        color = graphics::Color::fromName(parser.value(QStringLiteral("color")));
        if (!color.isValid())
            return usageError(kPhoto, QStringLiteral("unknown colour '%1'").arg(parser.value(QStringLiteral("color"))));
    }
    VUTesterImageGeneratorPtr content = contentGenerator(parser.value(QStringLiteral("content")), color);
    if (!content)
        return usageError(kPhoto, QStringLiteral("--content must be solid, concentric or radial (got '%1')").arg(parser.value(QStringLiteral("content"))));
    graphics::ImageOrientation orientation = graphics::ImageOrientation::Up;
    if (parser.isSet(QStringLiteral("orientation")) && !graphics::imageOrientationFromLabel(parser.value(QStringLiteral("orientation")), &orientation))
        return usageError(kPhoto, QStringLiteral("unknown orientation '%1'").arg(parser.value(QStringLiteral("orientation"))));

    VUTesterPhotoWriter writer;
    writer.setOutputURL(output);
    if (parser.isSet(QStringLiteral("date")) && parser.isSet(QStringLiteral("no-date")))
        return usageError(kPhoto, QStringLiteral("--date and --no-date exclude each other"));
    if (parser.isSet(QStringLiteral("no-date")))
        writer.setDate(QDateTime());
    if (parser.isSet(QStringLiteral("date"))) {
        const QDateTime date = QDateTime::fromString(parser.value(QStringLiteral("date")), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        if (!date.isValid())
            return usageError(kPhoto, QStringLiteral("--date wants \"YYYY-MM-DD HH:MM:SS\" (got '%1')").arg(parser.value(QStringLiteral("date"))));
        writer.setDate(date);
    }
    if (parser.isSet(QStringLiteral("location"))) {
        VUTesterLocation location;
        if (!parseLocation(parser.value(QStringLiteral("location")), &location))
            return usageError(kPhoto, QStringLiteral("--location wants LAT,LON in decimal degrees within ±90,±180 (got '%1')").arg(parser.value(QStringLiteral("location"))));
        writer.setLocation(location);
    }
    if (parser.isSet(QStringLiteral("pairing-id"))) {
        QByteArray unused;
        if (!imageio::writePairingIdentifierMakerNote(parser.value(QStringLiteral("pairing-id")), &unused, &message))
            return usageError(kPhoto, message);
        writer.setStirShotPairingIdentifier(parser.value(QStringLiteral("pairing-id")));
    }

    auto oriented = std::make_shared<VUTesterOrientedImageGenerator>();
    oriented->setImageGenerator(content);
    oriented->setImageSize(size);
    oriented->setImageOrientation(int64_t(orientation));
    const graphics::ImagePtr image = oriented->generatedImage();
    if (!image)
        return failure(kPhoto, QStringLiteral("could not draw a %1x%2 picture").arg(size.width()).arg(size.height()));
    writer.setImage(image->pixels());

    VUTesterOptionalError error;
    if (!writer.writeImageWithError(&error)) {
        const QFileInfo folder(QFileInfo(output).absolutePath());
        const QString hint = !folder.isDir()         ? QStringLiteral(" (the folder %1 does not exist)").arg(folder.filePath())
                             : !folder.isWritable() ? QStringLiteral(" (the folder %1 is not writable)").arg(folder.filePath())
                                                    : QString();
        return failure(kPhoto, QStringLiteral("cannot write %1: %2%3").arg(output, error->debugDescription, hint));
    }
    QTextStream(stdout) << output << Qt::endl;
    return ExitOk;
}

} // namespace app
