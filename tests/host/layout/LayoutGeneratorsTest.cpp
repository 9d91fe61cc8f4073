// The three layout generators keep their promises over many random inputs (no overlap, inside the
// width, the key item largest, order kept, content height), and each one's own rules at known
// inputs: lattice columns, justified rows, building-block spans, corners.

#include "QtPrinters.h"

#include "layout/VXExploreLayoutGenerator.h"
#include "layout/VXLatticerLayoutGenerator.h"
#include "layout/VXYearsMonthsLayoutGenerator.h"

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr double kEpsilon = 1e-6;

struct Input {
    double width = 50;
    double spacing = 2;
    std::vector<VXLayoutItem> items;
    qint64 key = VXNotFound;
};

struct Output {
    std::vector<QRectF> frames;
    QSizeF size;
    VXLayoutGenerator::CornerSpriteIndexes corners;
};

Output run(VXLayoutGenerator &generator, const Input &input)
{
    generator.setItemCount(qint64(input.items.size()));
    generator.setKeyItemIndex(input.key);
    generator.setItemLayoutInfoBlock([items = input.items](qint64 i) { return items[size_t(i)]; });
    const qint64 count = generator.numberOfGeometriesWithKind(VXLayoutGeometryKindItem);
    std::vector<VXLayoutGeometry> geometries(static_cast<size_t>(count));
    generator.getGeometries(geometries.data(), {0, count}, VXLayoutGeometryKindItem);
    Output output;
    for (const VXLayoutGeometry &geometry : geometries)
        output.frames.push_back(geometry.frame());
    output.size = generator.size();
    output.corners = generator.cornerSpriteIndexes();
    return output;
}

enum class Kind { Explore, Latticer, YearsMonths };

std::unique_ptr<VXLayoutGenerator> make(Kind kind, const Input &input)
{
    const VXLayoutMetrics metrics{QSizeF(input.width, input.width), input.spacing};
    switch (kind) {
    case Kind::Explore: return std::make_unique<VXExploreLayoutGenerator>(metrics);
    case Kind::Latticer: return std::make_unique<VXLatticerLayoutGenerator>(metrics);
    case Kind::YearsMonths: return std::make_unique<VXYearsMonthsLayoutGenerator>(metrics);
    }
    return nullptr;
}

Output run(Kind kind, const Input &input)
{
    return run(*make(kind, input), input);
}

VXLayoutItem square(double weight = 0) { return {QSizeF(300, 300), weight}; }
VXLayoutItem pano() { return {QSizeF(1000, 300), 0}; }
VXLayoutItem verticalPano() { return {QSizeF(300, 1000), 0}; }

// Random inputs of photo-like items: the playground's five shapes and any ratio from 1:4 to 4:1,
// weights from -2 to 2, a key item about half of the time.
Input randomInput(std::mt19937 &random, int maxItems)
{
    std::uniform_real_distribution<double> unit(0, 1);
    Input input;
    input.width = 20 + unit(random) * 780;
    input.spacing = unit(random) < 0.2 ? 0 : unit(random) * 8;
    const int count = int(unit(random) * maxItems);
    const QSizeF shapes[] = {{300, 300}, {300, 400}, {400, 300}, {1000, 300}, {300, 1000}};
    for (int i = 0; i < count; ++i) {
        QSizeF size = shapes[random() % 5];
        if (unit(random) < 0.4)
            size = QSizeF(std::pow(4.0, unit(random) * 2 - 1) * 100, 100);
        const double weight = unit(random) < 0.7 ? 0 : std::round(unit(random) * 4 - 2);
        input.items.push_back({size, weight});
    }
    if (count > 0 && unit(random) < 0.5)
        input.key = qint64(random() % unsigned(count));
    return input;
}

// Whether item j comes after item i when read row by row: `at` gives the point that stands for
// an item's place (its first block, its cell centre).
bool readsAfter(QPointF i, QPointF j)
{
    if (j.y() > i.y() + kEpsilon)
        return true;
    return std::abs(j.y() - i.y()) <= kEpsilon && j.x() > i.x() + kEpsilon;
}

void expectPromises(Kind kind, const Input &input, const Output &output, const std::string &where)
{
    const size_t count = input.items.size();
    ASSERT_EQ(output.frames.size(), count) << where;
    EXPECT_EQ(output.size.width(), input.width) << where;
    double bottom = 0;
    for (size_t i = 0; i < count; ++i) {
        const QRectF &frame = output.frames[i];
        ASSERT_TRUE(std::isfinite(frame.x()) && std::isfinite(frame.y()) && frame.width() >= 0 && frame.height() >= 0) << where;
        EXPECT_GE(frame.left(), -kEpsilon) << where << " item " << i;
        EXPECT_LE(frame.right(), input.width + kEpsilon) << where << " item " << i;
        EXPECT_GE(frame.top(), -kEpsilon) << where << " item " << i;
        bottom = std::max(bottom, frame.bottom());
        const QRectF inner = frame.adjusted(kEpsilon, kEpsilon, -kEpsilon, -kEpsilon);
        for (size_t j = i + 1; j < count; ++j)
            ASSERT_FALSE(inner.intersects(output.frames[j])) << where << " items " << i << " and " << j;
    }
    // Content ends with the lowest item, or for the lattice with its last row of cells, where
    // fitted items may stop short.
    EXPECT_LE(bottom, output.size.height() + kEpsilon) << where;
    if (kind != Kind::Latticer) {
        EXPECT_NEAR(output.size.height(), bottom, kEpsilon) << where;
    }

    if (input.key != VXNotFound && count > 1) {
        const double keyArea = output.frames[size_t(input.key)].width() * output.frames[size_t(input.key)].height();
        for (size_t i = 0; i < count; ++i)
            if (qint64(i) != input.key) {
                EXPECT_GT(keyArea, output.frames[i].width() * output.frames[i].height() + kEpsilon) << where << " item " << i;
            }
    }

    // The explore layout keeps every item in order by its first block; the others place the key
    // item first and keep the rest in order by their cells (lattice) or rows (justified).
    const auto place = [&](size_t i) { return kind == Kind::Latticer ? output.frames[i].center() : output.frames[i].topLeft(); };
    qint64 previous = -1;
    for (size_t i = 0; i < count; ++i) {
        if (kind != Kind::Explore && qint64(i) == input.key)
            continue;
        if (previous >= 0) {
            EXPECT_TRUE(readsAfter(place(size_t(previous)), place(i))) << where << " item " << i << " after " << previous;
        }
        previous = qint64(i);
    }
}

class PromisesTest : public ::testing::TestWithParam<Kind> {};

} // namespace

TEST_P(PromisesTest, HoldOverRandomInputs)
{
    std::mt19937 random(20240613 + int(GetParam()));
    for (int trial = 0; trial < 400; ++trial) {
        const Input input = randomInput(random, trial % 10 == 0 ? 400 : 40);
        expectPromises(GetParam(), input, run(GetParam(), input), "trial " + std::to_string(trial));
        if (HasFatalFailure() || testing::Test::HasFailure())
            return;
    }
}

TEST_P(PromisesTest, SameInputSameGeometriesAndEachItemIsAskedForOncePerPass)
{
    std::mt19937 random(7);
    const Input input = randomInput(random, 60);
    const std::unique_ptr<VXLayoutGenerator> generator = make(GetParam(), input);
    const Output first = run(*generator, input);
    EXPECT_EQ(first.frames, run(GetParam(), input).frames);

    int asked = 0;
    generator->setItemLayoutInfoBlock([&](qint64 i) {
        ++asked;
        return input.items[size_t(i)];
    });
    generator->size();
    generator->cornerSpriteIndexes();
    EXPECT_EQ(generator->numberOfGeometriesWithKind(VXLayoutGeometryKindItem), qint64(input.items.size()));
    EXPECT_EQ(asked, int(input.items.size())) << "one pass, however many questions";
    generator->setKeyItemIndex(generator->keyItemIndex());
    generator->size();
    EXPECT_EQ(asked, int(input.items.size())) << "setting the same key item changes nothing";
    EXPECT_EQ(generator->numberOfGeometriesWithKind(1), 0);
}

TEST_P(PromisesTest, NoItemsGiveNoGeometriesNoCornersAndNoHeight)
{
    Input input;
    input.width = 120;
    const Output output = run(GetParam(), input);
    EXPECT_TRUE(output.frames.empty());
    EXPECT_EQ(output.size, QSizeF(120, 0));
    EXPECT_EQ(output.corners, (VXLayoutGenerator::CornerSpriteIndexes{VXNoCornerSprite, VXNoCornerSprite, VXNoCornerSprite, VXNoCornerSprite}));
}

INSTANTIATE_TEST_SUITE_P(Generators, PromisesTest, ::testing::Values(Kind::Explore, Kind::Latticer, Kind::YearsMonths),
                         [](const auto &info) { return std::string(info.param == Kind::Explore ? "Explore" : info.param == Kind::Latticer ? "Latticer" : "YearsMonths"); });

TEST(VXLayoutGeneratorDeathTest, AskingForGeometriesBeyondTheItemsEndsTheProcess)
{
    VXLatticerLayoutGenerator generator({QSizeF(100, 100), 2});
    generator.setItemCount(3);
    VXLayoutGeometry geometries[4];
    EXPECT_DEATH(generator.getGeometries(geometries, {1, 3}, VXLayoutGeometryKindItem), "geometries 1 to 4 of kind 0 asked for, 3 exist");
}

TEST(VXLatticerLayoutGenerator, ColumnsFollowTheSquareRootOfTheCellsAndTheKeyTakesFourCells)
{
    const std::pair<qint64, int> withoutKey[] = {{1, 1}, {2, 2}, {4, 2}, {5, 3}, {9, 3}, {10, 4}, {10000, 100}, {10001, 101}};
    for (const auto &[count, columns] : withoutKey)
        EXPECT_EQ(VXLatticerLayoutGenerator::numberOfColumnsForItemCount(count, false), columns) << count;
    EXPECT_EQ(VXLatticerLayoutGenerator::numberOfColumnsForItemCount(1, true), 1);
    EXPECT_EQ(VXLatticerLayoutGenerator::numberOfColumnsForItemCount(2, true), 3);
    EXPECT_EQ(VXLatticerLayoutGenerator::numberOfColumnsForItemCount(6, true), 3);
    EXPECT_EQ(VXLatticerLayoutGenerator::numberOfColumnsForItemCount(7, true), 4);

    // Three items in two columns of 49-point cells: a pano fitted into the second cell, the third
    // cell alone in the last row, so the bottom-right corner is empty.
    Input input{100, 2, {square(), pano(), square()}, VXNotFound};
    const Output output = run(Kind::Latticer, input);
    EXPECT_EQ(output.frames[0], QRectF(0, 0, 49, 49));
    EXPECT_EQ(output.frames[1], QRectF(51, 24.5 - 49 * 0.15, 49, 49 * 0.3));
    EXPECT_EQ(output.frames[2], QRectF(0, 51, 49, 49));
    EXPECT_EQ(output.size, QSizeF(100, 100));
    EXPECT_EQ(output.corners, (VXLayoutGenerator::CornerSpriteIndexes{0, 1, 2, VXNoCornerSprite}));

    // With item 2 as key: it takes the 2 x 2 block at the top left of three columns.
    input.key = 2;
    const Output keyed = run(Kind::Latticer, input);
    const double cell = (100 - 4) / 3.0;
    EXPECT_EQ(keyed.frames[2], QRectF(0, 0, 2 * cell + 2, 2 * cell + 2));
    EXPECT_EQ(keyed.frames[0].topLeft(), QPointF(2 * cell + 4, 0));
    EXPECT_EQ(keyed.corners, (VXLayoutGenerator::CornerSpriteIndexes{2, 0, 2, 1}));
}

TEST(VXYearsMonthsLayoutGenerator, KeyAloneThenJustifiedRowsAndAShortLastRowAtTheLimit)
{
    // Width 100: rows at most 20 tall. Squares: five fit in (100 - 8) / 5 = 18.4; the two left
    // over stay 20 tall from the left edge, and the key pano spans the width.
    Input input{100, 2, {}, 3};
    for (int i = 0; i < 8; ++i)
        input.items.push_back(i == 3 ? pano() : square());
    const Output output = run(Kind::YearsMonths, input);
    EXPECT_EQ(output.frames[3], QRectF(0, 0, 100, 30));
    for (int i : {0, 1, 2, 4, 5}) {
        EXPECT_DOUBLE_EQ(output.frames[size_t(i)].top(), 32) << i;
        EXPECT_NEAR(output.frames[size_t(i)].height(), 18.4, 1e-9) << i;
    }
    EXPECT_DOUBLE_EQ(output.frames[5].right(), 100);
    EXPECT_EQ(output.frames[6], QRectF(0, 52.4, 20, 20));
    EXPECT_EQ(output.frames[7], QRectF(22, 52.4, 20, 20));
    EXPECT_DOUBLE_EQ(output.size.height(), 72.4);
    EXPECT_EQ(output.corners, (VXLayoutGenerator::CornerSpriteIndexes{3, 3, 6, VXNoCornerSprite}));

    // A portrait key would be taller than the width: it stops at the width's height.
    const Output portrait = run(Kind::YearsMonths, Input{100, 2, {{QSizeF(300, 400), 0}, square()}, 0});
    EXPECT_EQ(portrait.frames[0], QRectF(0, 0, 75, 100));
    EXPECT_EQ(portrait.corners[VXLayoutGenerator::TopRight], VXNoCornerSprite);
}

TEST(VXYearsMonthsLayoutGenerator, EveryRowBelowItsLimitFillsTheWidthExactly)
{
    std::mt19937 random(99);
    for (int trial = 0; trial < 200; ++trial) {
        const Input input = randomInput(random, 80);
        VXYearsMonthsLayoutGenerator generator({QSizeF(input.width, input.width), input.spacing});
        const Output output = run(generator, input);
        std::map<double, std::pair<double, double>> rows; // top -> leftmost, rightmost
        std::map<double, double> heights;
        for (size_t i = 0; i < output.frames.size(); ++i) {
            const QRectF &f = output.frames[i];
            auto [it, added] = rows.try_emplace(f.top(), f.left(), f.right());
            it->second = {std::min(it->second.first, f.left()), std::max(it->second.second, f.right())};
            heights[f.top()] = f.height();
            EXPECT_LE(f.height(), (qint64(i) == input.key ? generator.maximumKeyItemHeight() : generator.maximumRowHeight()) + kEpsilon);
        }
        for (const auto &[top, extent] : rows) {
            EXPECT_NEAR(extent.first, 0, kEpsilon) << "trial " << trial << " row at " << top;
            const bool atLimit = std::abs(heights[top] - generator.maximumRowHeight()) < kEpsilon
                                 || std::abs(heights[top] - generator.maximumKeyItemHeight()) < kEpsilon;
            if (!atLimit) {
                EXPECT_DOUBLE_EQ(extent.second, input.width) << "trial " << trial << " row at " << top;
            }
        }
    }
}

TEST(VXExploreLayoutGenerator, SpansByShapeWeightAndKeyOnTheBlockGrid)
{
    VXExploreLayoutGenerator generator({QSizeF(100, 100), 4});
    EXPECT_EQ(generator.buildingBlockSize(), QSizeF(22, 22));
    using Span = VXExploreLayoutGenerator::Span;
    EXPECT_EQ(generator.spanForItem(1000 / 300.0, false, true), (Span{4, 1}));
    EXPECT_EQ(generator.spanForItem(1000 / 300.0, true, false), (Span{4, 2}));
    EXPECT_EQ(generator.spanForItem(0.3, false, false), (Span{1, 2}));
    EXPECT_EQ(generator.spanForItem(0.3, false, true), (Span{1, 3}));
    EXPECT_EQ(generator.spanForItem(0.3, true, false), (Span{2, 4}));
    EXPECT_EQ(generator.spanForItem(0.75, false, true), (Span{2, 2}));
    EXPECT_EQ(generator.spanForItem(4 / 3.0, true, false), (Span{3, 3}));
    EXPECT_EQ(VXExploreLayoutGenerator({QSizeF(100, 100), 4}, 3).spanForItem(1, true, false), (Span{3, 3}));
    EXPECT_EQ(VXExploreLayoutGenerator({QSizeF(100, 100), 4}, 6).spanForItem(1, true, false), (Span{5, 5}));

    // A square, a heavier square beside it (one unit over a mean of 1/6), two squares that fill
    // the rows beside it, then a pano that needs a row of its own: the hole it leaves in row 1 is
    // the only one, so the bottom-left corner is the pano's and the top right the fourth item's.
    Input input{100, 4, {square(), square(1), square(), square(), square(), pano()}, VXNotFound};
    const Output output = run(generator, input);
    const double stride = 26;
    EXPECT_EQ(output.frames[0], QRectF(0, 0, 22, 22));
    EXPECT_EQ(output.frames[1], QRectF(stride, 0, 48, 48));
    EXPECT_EQ(output.frames[2], QRectF(3 * stride, 0, 22, 22));
    EXPECT_EQ(output.frames[3], QRectF(0, stride, 22, 22));
    EXPECT_EQ(output.frames[4], QRectF(3 * stride, stride, 22, 22));
    EXPECT_EQ(output.frames[5], QRectF(0, 2 * stride, 100, 22));
    EXPECT_EQ(output.size, QSizeF(100, 3 * stride - 4));
    EXPECT_EQ(output.corners, (VXLayoutGenerator::CornerSpriteIndexes{0, 2, 5, 5}));

    // A vertical pano in the last column leaves the first block of the last row empty.
    const Output tall = run(generator, Input{100, 4, {square(), square(), square(), verticalPano()}, VXNotFound});
    EXPECT_EQ(tall.corners, (VXLayoutGenerator::CornerSpriteIndexes{0, 3, VXNoCornerSprite, 3}));
}
