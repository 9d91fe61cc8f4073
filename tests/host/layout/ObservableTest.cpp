// The host observable: changes made inside performChanges reach each observer once as one mask,
// contexts keep registrations apart, and observers may leave while they are being told.

#include "layout/VXObservable.h"

#include <gtest/gtest.h>

namespace {

int g_contextA, g_contextB;

struct Recorder : VXChangeObserver {
    std::vector<std::pair<quint64, void *>> heard;
    std::function<void()> onChange;
    void didChange(VXObservable *, quint64 change, void *context) override
    {
        heard.emplace_back(change, context);
        if (onChange)
            onChange();
    }
};

} // namespace

TEST(VXObservable, ChangesInsideNestedPerformChangesArriveOnceAsOneMask)
{
    VXObservable observable;
    Recorder recorder;
    observable.registerChangeObserver(&recorder, &g_contextA);
    observable.registerChangeObserver(&recorder, &g_contextA);
    observable.performChanges([&] {
        observable.signalChange(1);
        observable.performChanges([&] { observable.signalChange(4); });
        EXPECT_TRUE(recorder.heard.empty()) << "nothing is told before the outermost change ends";
    });
    ASSERT_EQ(recorder.heard.size(), 1u) << "registered twice with one context is registered once";
    EXPECT_EQ(recorder.heard[0], std::make_pair(quint64(5), static_cast<void *>(&g_contextA)));

    observable.performChanges([] {});
    EXPECT_EQ(recorder.heard.size(), 1u) << "no change signalled, nobody told";
    observable.signalChange(2);
    EXPECT_EQ(recorder.heard.back().first, 2u) << "outside performChanges a change is told at once";
}

TEST(VXObservable, EachContextIsARegistrationOfItsOwnAndLeavingDuringDeliveryIsSafe)
{
    VXObservable observable;
    Recorder first, second;
    observable.registerChangeObserver(&first, &g_contextA);
    observable.registerChangeObserver(&first, &g_contextB);
    observable.registerChangeObserver(&second, &g_contextA);
    first.onChange = [&] { observable.unregisterChangeObserver(&second, &g_contextA); };
    observable.signalChange(1);
    EXPECT_EQ(first.heard.size(), 2u);
    EXPECT_EQ(first.heard[1].second, &g_contextB);
    EXPECT_TRUE(second.heard.empty()) << "unregistered before its turn";

    first.onChange = nullptr;
    observable.unregisterChangeObserver(&first, &g_contextA);
    observable.signalChange(1);
    EXPECT_EQ(first.heard.back().second, &g_contextB);
    EXPECT_FALSE(observable.hasChangeObserver(&first, &g_contextA));
    EXPECT_TRUE(observable.hasChangeObserver(&first, &g_contextB));
}
