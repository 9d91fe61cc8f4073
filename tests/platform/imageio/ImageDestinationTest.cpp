#include "imageio/ExifProperties.h"
#include "imageio/ImageDestination.h"
#include "imageio/PhotoMetadata.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace imageio;

namespace {

QImage testImage(int width, int height)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    image.fill(QColor(200, 40, 40));
    return image;
}

bool writeImage(const QString &path, ImageDestination::Type type, const QImage &image, const ImageProperties &properties, QString *error)
{
    auto destination = ImageDestination::create(path, type, error);
    if (!destination)
        return false;
    destination->addImage(image, properties);
    return destination->finalize(error);
}

ImageProperties fullProperties()
{
    ImageProperties properties;
    properties.gps = GPSProperties{33.86, QStringLiteral("S"), 151.21, QStringLiteral("E")};
    properties.dateTimeOriginal = QStringLiteral("2021:03:05 14:07:09");
    EXPECT_TRUE(writePairingIdentifierMakerNote(QStringLiteral("8C1F2A3B-0000-4000-8000-ABCDEF012345"), &properties.makerNote, nullptr));
    return properties;
}

} // namespace

TEST(ImageDestination, MetadataRoundTripsThroughJPEGAndPNG)
{
    QTemporaryDir dir;
    for (const auto &[type, name] : {std::pair{ImageDestination::Type::JPEG, "a.jpg"}, std::pair{ImageDestination::Type::PNG, "a.png"}}) {
        const QString path = dir.filePath(QLatin1String(name));
        QString error;
        ASSERT_TRUE(writeImage(path, type, testImage(64, 48), fullProperties(), &error)) << error.toStdString();

        PhotoMetadata metadata;
        ASSERT_TRUE(readPhotoMetadata(path, &metadata, &error)) << error.toStdString();
        EXPECT_EQ(metadata.pixelSize, QSize(64, 48)) << name;
        EXPECT_TRUE(metadata.hasLocation) << name;
        EXPECT_NEAR(metadata.latitude, -33.86, 1e-7) << name;
        EXPECT_NEAR(metadata.longitude, 151.21, 1e-7) << name;
        EXPECT_EQ(metadata.captureDate, QDateTime(QDate(2021, 3, 5), QTime(14, 7, 9))) << name;
        EXPECT_EQ(metadata.pairingIdentifier, QStringLiteral("8C1F2A3B-0000-4000-8000-ABCDEF012345")) << name;
        EXPECT_EQ(metadata.exifOrientation, 1) << name;

        // Other decoders read the pixels, not only our metadata reader.
        QImage decoded = QImageReader(path).read();
        ASSERT_FALSE(decoded.isNull()) << name;
        const QColor centre = decoded.pixelColor(32, 24);
        EXPECT_NEAR(centre.red(), 200, 4) << name;
        EXPECT_NEAR(centre.green(), 40, 4) << name;
    }
}

TEST(ImageDestination, EmptyPropertiesWriteNoMetadataAndEveryPixelFormatEncodes)
{
    QTemporaryDir dir;
    for (QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB888, QImage::Format_Grayscale8}) {
        const QString path = dir.filePath(QStringLiteral("plain-%1.jpg").arg(int(format)));
        QImage image = testImage(33, 17).convertToFormat(format);
        QString error;
        ASSERT_TRUE(writeImage(path, ImageDestination::Type::JPEG, image, {}, &error)) << error.toStdString();
        PhotoMetadata metadata;
        ASSERT_TRUE(readPhotoMetadata(path, &metadata, &error));
        EXPECT_EQ(metadata.pixelSize, QSize(33, 17));
        EXPECT_FALSE(metadata.captureDate.isValid());
        EXPECT_FALSE(metadata.hasLocation);
        EXPECT_TRUE(metadata.pairingIdentifier.isEmpty());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_FALSE(file.readAll().contains(QByteArray("Exif\0\0", 6)));
    }
}

TEST(ImageDestination, FailuresLeaveNoFileBehind)
{
    QTemporaryDir dir;
    QString error;
    EXPECT_EQ(ImageDestination::create(dir.filePath(QStringLiteral("missing/a.jpg")), ImageDestination::Type::JPEG, &error), nullptr);
    EXPECT_TRUE(error.contains(QStringLiteral("missing/a.jpg"))) << error.toStdString();

    const QString path = dir.filePath(QStringLiteral("empty.jpg"));
    auto destination = ImageDestination::create(path, ImageDestination::Type::JPEG, &error);
    ASSERT_TRUE(destination);
    EXPECT_FALSE(destination->finalize(&error));
    destination.reset();
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(QDir(dir.path()).entryList(QDir::Files).isEmpty());
}

TEST(ImageDestination, ExistingFileIsReplacedOnlyOnSuccess)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("kept.jpg"));
    QString error;
    ASSERT_TRUE(writeImage(path, ImageDestination::Type::JPEG, testImage(8, 8), {}, &error));
    auto destination = ImageDestination::create(path, ImageDestination::Type::JPEG, &error);
    ASSERT_TRUE(destination);
    EXPECT_FALSE(destination->finalize(&error)); // no image
    destination.reset();
    PhotoMetadata metadata;
    ASSERT_TRUE(readPhotoMetadata(path, &metadata, &error));
    EXPECT_EQ(metadata.pixelSize, QSize(8, 8));
}

TEST(ExifProperties, DegreesMinutesSecondsCarryInsteadOfReachingSixty)
{
    DegreesMinutesSeconds dms = toDegreesMinutesSeconds(33.86);
    EXPECT_EQ(dms.degrees, 33u);
    EXPECT_EQ(dms.minutes, 51u);
    EXPECT_EQ(dms.tenThousandthSeconds, 360000u);
    dms = toDegreesMinutesSeconds(-10.99999999999);
    EXPECT_EQ(dms.degrees, 11u);
    EXPECT_EQ(dms.minutes, 0u);
    EXPECT_EQ(dms.tenThousandthSeconds, 0u);
}

TEST(PhotoMetadata, PairingIdentifierFormIsCheckedBothWays)
{
    QByteArray note;
    QString error;
    EXPECT_FALSE(writePairingIdentifierMakerNote(QString(), &note, &error));
    EXPECT_FALSE(writePairingIdentifierMakerNote(QString(256, QLatin1Char('A')), &note, &error));
    EXPECT_FALSE(writePairingIdentifierMakerNote(QStringLiteral("tab\there"), &note, &error));
    EXPECT_TRUE(error.contains(QStringLiteral("pairing identifier")));
    ASSERT_TRUE(writePairingIdentifierMakerNote(QString(255, QLatin1Char('A')), &note, &error));
    EXPECT_EQ(pairingIdentifierFromMakerNote(note), QString(255, QLatin1Char('A')));
    // A camera's own maker note is not ours.
    EXPECT_TRUE(pairingIdentifierFromMakerNote(QByteArray("Nikon\0\2\0\0\0", 10)).isEmpty());
}

TEST(PhotoMetadata, UnreadableFilesAreRefused)
{
    QTemporaryDir dir;
    const QString text = dir.filePath(QStringLiteral("notes.jpg"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not an image at all");
    file.close();
    PhotoMetadata metadata;
    QString error;
    EXPECT_FALSE(readPhotoMetadata(text, &metadata, &error));
    EXPECT_TRUE(error.contains(QStringLiteral("notes.jpg"))) << error.toStdString();
    EXPECT_FALSE(readPhotoMetadata(dir.filePath(QStringLiteral("none.jpg")), &metadata, &error));
    EXPECT_TRUE(error.contains(QStringLiteral("no such file")));
}
