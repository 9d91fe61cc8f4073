// The play button over videos: what each style paints over a picture, which taps it takes, and
// its spinner, which turns with the display only while it shows.

#include "QtPrinters.h"

#include <overlay/VUVideoOverlayButton.h>

#include "ui/DisplayLink.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

// The button in the middle of a mid-grey 100 x 100 picture.
QImage paintedOver(VUVideoOverlayButton::Style style, VUVideoOverlayButton::Mode mode, bool enabled = true)
{
    QWidget picture;
    picture.resize(100, 100);
    picture.setAutoFillBackground(true);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(128, 128, 128));
    picture.setPalette(palette);
    VUVideoOverlayButton button(&picture);
    button.setOverlayStyle(style);
    button.setMode(mode);
    button.setEnabled(enabled);
    button.setDiameter(60);
    button.move(20, 20);
    return picture.grab().toImage();
}

int grey(const QImage &image, int x, int y) { return qGray(image.pixel(x, y)); }

} // namespace

TEST(VUVideoOverlayButton, EachStyleStandsOutFromThePictureItsOwnWay)
{
    // (50, 50) is inside the play triangle; (50, 25) inside the disc but off the glyph; (22, 22)
    // in the button's square but outside its circle.
    const QImage dark = paintedOver(VUVideoOverlayButton::Style::DarkDisc, VUVideoOverlayButton::Mode::Play);
    EXPECT_GT(grey(dark, 50, 50), 240);
    EXPECT_LT(grey(dark, 50, 25), 100);
    EXPECT_EQ(grey(dark, 22, 22), 128);

    const QImage light = paintedOver(VUVideoOverlayButton::Style::LightDisc, VUVideoOverlayButton::Mode::Play);
    EXPECT_LT(grey(light, 50, 50), 40);
    EXPECT_GT(grey(light, 50, 25), 220);

    const QImage glyph = paintedOver(VUVideoOverlayButton::Style::GlyphOnly, VUVideoOverlayButton::Mode::Play);
    EXPECT_GT(grey(glyph, 50, 50), 240);
    EXPECT_EQ(grey(glyph, 50, 25), 128);

    // The outline's ring runs along the circle's edge.
    const QImage outline = paintedOver(VUVideoOverlayButton::Style::Outline, VUVideoOverlayButton::Mode::Play);
    EXPECT_GT(grey(outline, 50, 21), 200);

    // Pause has two bars with a gap where play has its triangle; loading has neither.
    const QImage pause = paintedOver(VUVideoOverlayButton::Style::DarkDisc, VUVideoOverlayButton::Mode::Pause);
    EXPECT_GT(grey(pause, 44, 50), 240);
    EXPECT_LT(grey(pause, 50, 50), 100);
    const QImage loading = paintedOver(VUVideoOverlayButton::Style::DarkDisc, VUVideoOverlayButton::Mode::Loading);
    EXPECT_LT(grey(loading, 50, 50), 100);

    // Disabled, the glyph is dimmed towards the picture.
    const QImage disabled = paintedOver(VUVideoOverlayButton::Style::DarkDisc, VUVideoOverlayButton::Mode::Play, false);
    EXPECT_LT(grey(disabled, 50, 50), 200);
    EXPECT_GT(grey(disabled, 50, 50), 128);
}

TEST(VUVideoOverlayButton, TakesTapsInsideItsCircleOnlyAndNoneWhenDisabled)
{
    VUVideoOverlayButton button;
    button.setSize(VUVideoOverlayButton::Size::Large);
    EXPECT_EQ(button.sizeHint(), QSize(76, 76));
    EXPECT_EQ(button.size(), QSize(76, 76));
    button.show();
    QSignalSpy clicked(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(38, 38));
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(clicked.count(), 1);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(38, 38));
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(VUVideoOverlayButton::diameterForSize(VUVideoOverlayButton::Size::Small), 28);
}

TEST(VUVideoOverlayButton, TheSpinnerTurnsWithTheDisplayOnlyWhileLoadingAndShown)
{
    ui::DisplayLink::ManualStepping stepping(60);
    VUVideoOverlayButton button;
    button.setMode(VUVideoOverlayButton::Mode::Loading);
    EXPECT_FALSE(button.isSpinning());
    button.show();
    EXPECT_TRUE(button.isSpinning());
    stepping.step();
    const double start = button.spinnerAngle();
    stepping.step(15);
    // A turn a second: a quarter turn in 15 frames at 60 Hz.
    EXPECT_NEAR(button.spinnerAngle() - start, 90, 1e-6);

    button.hide();
    EXPECT_FALSE(button.isSpinning());
    stepping.step(15);
    button.show();
    button.setMode(VUVideoOverlayButton::Mode::Pause);
    EXPECT_FALSE(button.isSpinning());
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Pause"));
}
