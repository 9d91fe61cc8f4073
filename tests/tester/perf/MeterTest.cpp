// The frame-rate meters: the ring's arithmetic around a full window, the display-link meter's
// rate, and the registry's order and weak hold.

#include "QtPrinters.h"

#include "perf/meters/VUTesterDisplayLinkFPSMeter.h"

#include "ui/DisplayLink.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

QStringList labelsOfAllMeters()
{
    QStringList labels;
    for (const VUTesterFPSMeter *meter : VUTesterFPSMeter::allFPSMeters())
        labels << meter->label();
    return labels;
}

} // namespace

TEST(FPSMeter, NoRateUntilAFullWindowThenFiftyNineOverTheSpanOfTheLastSixty)
{
    ui::DisplayLink::ManualStepping clock(60);
    VUTesterFPSMeter meter;
    EXPECT_TRUE(std::isinf(meter.fps()) && meter.fps() > 0) << "no sample: 59 / 0";

    // The first interval is long: ten frames pass before the second sample.
    meter.sample();
    clock.step(10);
    for (int i = 2; i <= 59; ++i) {
        meter.sample();
        clock.step();
    }
    EXPECT_GT(meter.fps(), 0);
    EXPECT_LT(meter.fps(), 1e-6) << "59 samples: the oldest slot still holds 0, so the span is the whole clock";

    meter.sample(); // the 60th, into slot 0
    // Time stamps since 1970 keep about a microsecond of precision: rates agree to 1e-4.
    EXPECT_NEAR(meter.fps(), 59.0 / (68.0 / 60.0), 1e-4) << "the span runs from the first sample, long gap included";
    clock.step();
    meter.sample(); // the 61st overwrites the first
    EXPECT_NEAR(meter.fps(), 60, 1e-4) << "the long gap has left the window";
}

TEST(FPSMeter, ADisplayLinkMeterReportsTheRefreshRateOnlyWhileStarted)
{
    for (double rate : {60.0, 120.0}) {
        ui::DisplayLink::ManualStepping frames(rate);
        VUTesterDisplayLinkFPSMeter meter;
        EXPECT_EQ(meter.label(), QStringLiteral("Display Link"));
        frames.step(80);
        EXPECT_TRUE(std::isinf(meter.fps())) << "not sampling before start";
        meter.start();
        frames.step(60);
        EXPECT_NEAR(meter.fps(), rate, 1e-3);
        frames.step(7);
        EXPECT_NEAR(meter.fps(), rate, 1e-3);

        meter.invalidate();
        const double stopped = meter.fps();
        meter.start();
        frames.step(30);
        EXPECT_EQ(meter.fps(), stopped) << "an invalidated timer never fires again";
        EXPECT_EQ(labelsOfAllMeters(), QStringList{QStringLiteral("Display Link")}) << "yet it is listed again";
        meter.invalidate();
    }
}

TEST(FPSMeter, TheRegistryListsStartedMetersByLabelAndForgetsThoseThatGo)
{
    EXPECT_TRUE(VUTesterFPSMeter::allFPSMeters().isEmpty());
    VUTesterFPSMeter ten, plain, two, neverStarted;
    ten.setLabel(QStringLiteral("Display Link 10"));
    plain.setLabel(QStringLiteral("display link"));
    two.setLabel(QStringLiteral("Display Link 2"));
    neverStarted.setLabel(QStringLiteral("A"));
    neverStarted.invalidate(); // harmless when not registered
    for (VUTesterFPSMeter *meter : {&ten, &plain, &two, &two})
        meter->start();
    EXPECT_EQ(labelsOfAllMeters(), (QStringList{"display link", "Display Link 2", "Display Link 10"}));

    {
        auto transient = std::make_unique<VUTesterFPSMeter>();
        transient->setLabel(QStringLiteral("Display Link 3"));
        transient->start();
        EXPECT_EQ(labelsOfAllMeters().size(), 4);
    }
    EXPECT_EQ(labelsOfAllMeters(), (QStringList{"display link", "Display Link 2", "Display Link 10"})) << "a released meter drops out";
    two.invalidate();
    EXPECT_EQ(labelsOfAllMeters(), (QStringList{"display link", "Display Link 10"}));
    plain.invalidate();
    ten.invalidate();
}
