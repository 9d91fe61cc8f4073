#include "media/VUTesterPhotoWriter.h"

#include <imageio/PhotoMetadata.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <exiv2/exif.hpp>
#include <exiv2/image.hpp>

#include <future>
#include <vector>

#include <gtest/gtest.h>

namespace {

QImage bitmap(int width = 40, int height = 30)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::blue);
    return image;
}

Exiv2::ExifData exifOf(const QString &path)
{
    auto image = Exiv2::ImageFactory::open(QFile::encodeName(path).toStdString());
    image->readMetadata();
    return image->exifData();
}

std::string tagText(const Exiv2::ExifData &exif, const char *key)
{
    const auto it = exif.findKey(Exiv2::ExifKey(key));
    return it == exif.end() ? std::string("<absent>") : it->toString();
}

bool hasGPSGroup(const Exiv2::ExifData &exif)
{
    return std::any_of(exif.begin(), exif.end(), [](const Exiv2::Exifdatum &datum) { return datum.groupName() == "GPSInfo"; });
}

std::vector<std::string> gpsTags(const Exiv2::ExifData &exif)
{
    std::vector<std::string> names;
    for (const Exiv2::Exifdatum &datum : exif)
        if (datum.groupName() == "GPSInfo")
            names.push_back(datum.tagName());
    return names;
}

} // namespace

TEST(VUTesterPhotoWriter, DefaultsToAFreshUpperCaseUUIDFileInTheTemporaryDirectory)
{
    VUTesterPhotoWriter first, second;
    const QFileInfo info(first.outputURL());
    EXPECT_EQ(info.absolutePath(), QDir(qEnvironmentVariable("TMPDIR")).absolutePath());
    EXPECT_TRUE(info.fileName().endsWith(QLatin1String(".jpg")));
    EXPECT_EQ(info.completeBaseName(), info.completeBaseName().toUpper());
    EXPECT_EQ(info.completeBaseName().size(), 36);
    EXPECT_NE(first.outputURL(), second.outputURL());
    EXPECT_LE(std::abs(first.date().secsTo(QDateTime::currentDateTime())), 2);
}

TEST(VUTesterPhotoWriter, WritesGPSAsDegreesMinutesSecondsWithReferenceLetters)
{
    QTemporaryDir dir;
    struct Case {
        double latitude, longitude;
        const char *latitudeRef, *longitudeRef, *latitudeText, *longitudeText;
    };
    const Case cases[] = {
        {-33.86, 151.21, "S", "E", "33/1 51/1 360000/10000", "151/1 12/1 360000/10000"},
        {0.0, 0.0, "N", "E", "0/1 0/1 0/10000", "0/1 0/1 0/10000"},
        {37.785834, -122.406417, "N", "W", "37/1 47/1 90024/10000", "122/1 24/1 231012/10000"},
    };
    for (const Case &c : cases) {
        VUTesterPhotoWriter writer;
        writer.setOutputURL(dir.filePath(QStringLiteral("gps-%1.jpg").arg(c.latitude)));
        writer.setImage(bitmap());
        writer.setLocation(VUTesterLocation{c.latitude, c.longitude});
        VUTesterOptionalError error = VUTesterError{QStringLiteral("stale")};
        ASSERT_TRUE(writer.writeImageWithError(&error));
        EXPECT_FALSE(error.has_value());

        const Exiv2::ExifData exif = exifOf(writer.outputURL());
        EXPECT_EQ(tagText(exif, "Exif.GPSInfo.GPSLatitudeRef"), c.latitudeRef);
        EXPECT_EQ(tagText(exif, "Exif.GPSInfo.GPSLongitudeRef"), c.longitudeRef);
        EXPECT_EQ(tagText(exif, "Exif.GPSInfo.GPSLatitude"), c.latitudeText);
        EXPECT_EQ(tagText(exif, "Exif.GPSInfo.GPSLongitude"), c.longitudeText);
        // Those four and nothing else: the photo's metadata names no GPS version.
        EXPECT_EQ(gpsTags(exif), (std::vector<std::string>{"GPSLatitudeRef", "GPSLatitude", "GPSLongitudeRef", "GPSLongitude"}));

        imageio::PhotoMetadata metadata;
        QString readError;
        ASSERT_TRUE(imageio::readPhotoMetadata(writer.outputURL(), &metadata, &readError));
        EXPECT_NEAR(metadata.latitude, c.latitude, 1e-7);
        EXPECT_NEAR(metadata.longitude, c.longitude, 1e-7);
        // No orientation of its own: the pixels are stored as they are.
        EXPECT_EQ(tagText(exif, "Exif.Image.Orientation"), "<absent>");
        EXPECT_EQ(metadata.pixelSize, QSize(40, 30));
    }
}

TEST(VUTesterPhotoWriter, DateTextIgnoresTheUsersLocaleAndIsSafeAcrossThreads)
{
    const QLocale previous;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt)); // other digits, 12-hour clock
    const QDateTime date(QDate(2021, 3, 5), QTime(14, 7, 9));
    std::vector<std::future<QString>> texts;
    for (int i = 0; i < 8; ++i)
        texts.push_back(std::async(std::launch::async, [&] { return VUTesterPhotoWriter::_exifDateFormatter().stringFromDate(date); }));
    for (auto &text : texts)
        EXPECT_EQ(text.get(), QStringLiteral("2021:03:05 14:07:09"));
    EXPECT_EQ(&VUTesterPhotoWriter::_exifDateFormatter(), &VUTesterPhotoWriter::_exifDateFormatter());

    QTemporaryDir dir;
    VUTesterPhotoWriter writer;
    writer.setOutputURL(dir.filePath(QStringLiteral("dated.jpg")));
    writer.setImage(bitmap());
    writer.setDate(date);
    ASSERT_TRUE(writer.writeImageWithError());
    QLocale::setDefault(previous);
    EXPECT_EQ(tagText(exifOf(writer.outputURL()), "Exif.Photo.DateTimeOriginal"), "2021:03:05 14:07:09");
}

TEST(VUTesterPhotoWriter, WritesOnlyTheGroupsItHasValuesFor)
{
    QTemporaryDir dir;
    VUTesterPhotoWriter imageOnly;
    imageOnly.setOutputURL(dir.filePath(QStringLiteral("only.jpg")));
    imageOnly.setImage(bitmap());
    ASSERT_TRUE(imageOnly.writeImageWithError());
    const Exiv2::ExifData exif = exifOf(imageOnly.outputURL());
    EXPECT_FALSE(hasGPSGroup(exif));
    EXPECT_EQ(tagText(exif, "Exif.Photo.DateTimeOriginal"), VUTesterPhotoWriter::_exifDateFormatter().stringFromDate(imageOnly.date()).toStdString());
    EXPECT_EQ(tagText(exif, "Exif.Photo.MakerNote"), "<absent>");

    VUTesterPhotoWriter bare;
    bare.setOutputURL(dir.filePath(QStringLiteral("bare.jpg")));
    bare.setImage(bitmap());
    bare.setDate(QDateTime());
    ASSERT_TRUE(bare.writeImageWithError());
    EXPECT_TRUE(exifOf(bare.outputURL()).empty());
}

TEST(VUTesterPhotoWriter, PairingIdentifierIsReadBackFromTheMakerNote)
{
    QTemporaryDir dir;
    VUTesterPhotoWriter writer;
    writer.setOutputURL(dir.filePath(QStringLiteral("paired.jpg")));
    writer.setImage(bitmap());
    writer.setStirShotPairingIdentifier(QStringLiteral("5E1B6F0C-9A44-4C6B-8C0E-2B7D4A1F9E33"));
    ASSERT_TRUE(writer.writeImageWithError());
    imageio::PhotoMetadata metadata;
    QString error;
    ASSERT_TRUE(imageio::readPhotoMetadata(writer.outputURL(), &metadata, &error));
    EXPECT_EQ(metadata.pairingIdentifier, writer.stirShotPairingIdentifier());
}

TEST(VUTesterPhotoWriter, EachFailureHasItsOwnTextAndLeavesNoFile)
{
    QTemporaryDir dir;
    struct Case {
        const char *name;
        QString path;
        QImage image;
        QString pairingIdentifier;
        QString expected;
    };
    const Case cases[] = {
        {"missing folder", dir.filePath(QStringLiteral("no/such/folder/a.jpg")), bitmap(), QStringLiteral("bad\tid"),
         QStringLiteral("Failed to create DQImageDestination")},
        {"bad pairing identifier", dir.filePath(QStringLiteral("b.jpg")), QImage(), QStringLiteral("bad\tid"),
         QStringLiteral("invalid pairing identifier \"bad\tid\": it must be 1 to 255 printable ASCII characters")},
        {"no image", dir.filePath(QStringLiteral("c.jpg")), QImage(), QString(),
         QStringLiteral("Failed to create an image and add to image destination")},
        // Wider than any JPEG may be: the encoder refuses it.
        {"encoder refuses", dir.filePath(QStringLiteral("d.jpg")), bitmap(70000, 1), QString(),
         QStringLiteral("Failed to finalize image destination")},
    };
    for (const Case &c : cases) {
        VUTesterPhotoWriter writer;
        writer.setOutputURL(c.path);
        writer.setImage(c.image);
        writer.setLocation(VUTesterLocation{1, 2});
        writer.setStirShotPairingIdentifier(c.pairingIdentifier);
        VUTesterOptionalError error;
        EXPECT_FALSE(writer.writeImageWithError(&error)) << c.name;
        ASSERT_TRUE(error.has_value()) << c.name;
        EXPECT_EQ(error->debugDescription, c.expected) << c.name;
        EXPECT_FALSE(QFile::exists(c.path)) << c.name;
    }
    EXPECT_TRUE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}
