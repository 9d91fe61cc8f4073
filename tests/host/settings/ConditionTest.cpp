#include "settings/TWCondition.h"
#include "settings/TWSettings.h"

#include <gtest/gtest.h>

namespace {

class FlagSettings : public TWSettings {
public:
    FlagSettings()
    {
        declareKey(QStringLiteral("internalCancelable"), Kind::Bool);
        declareKey(QStringLiteral("splitView"), Kind::Int64);
        declareKey(QStringLiteral("mode"), Kind::String);
        declareKey(QStringLiteral("place"), Kind::Location);
        declareKey(QStringLiteral("ratio"), Kind::Double);
    }
};

struct Case {
    const char *format;
    bool cancelable;
    qint64 splitView;
    const char *mode;
    bool expected;
};

} // namespace

TEST(TWCondition, EvaluatesComparisonsAndConnectives)
{
    const Case cases[] = {
        {"internalCancelable != 0", true, 0, "", true},
        {"internalCancelable != 0", false, 0, "", false},
        {"internalCancelable == YES", true, 0, "", true},
        {"splitView == 0", false, 0, "", true},
        {"splitView >= 2 AND internalCancelable != 0", true, 3, "", true},
        {"splitView >= 2 AND internalCancelable != 0", false, 3, "", false},
        {"splitView < 1 OR internalCancelable == 1", false, 5, "", false},
        {"NOT (splitView == 5) || mode == 'grid'", false, 5, "grid", true},
        {"!internalCancelable && mode != \"grid\"", false, 0, "list", true},
        {"splitView", false, -1, "", true},
        {"mode", false, 0, "", false},
        {"place == nil", false, 0, "", true},
    };
    for (const Case &c : cases) {
        FlagSettings s;
        s.setValueForKey(c.cancelable, QStringLiteral("internalCancelable"));
        s.setValueForKey(c.splitView, QStringLiteral("splitView"));
        s.setValueForKey(QString::fromLatin1(c.mode), QStringLiteral("mode"));
        QString error;
        const TWCondition condition = TWCondition::parse(QString::fromLatin1(c.format), &error);
        ASSERT_TRUE(condition.isValid()) << c.format << ": " << error.toStdString();
        EXPECT_EQ(condition.evaluate(&s), c.expected) << c.format;
    }
}

TEST(TWCondition, ReadsNumbersWithExponentsAndSigns)
{
    FlagSettings s;
    s.setValueForKey(0.000001, QStringLiteral("ratio"));
    const struct {
        const char *format;
        bool expected;
    } cases[] = {
        {"ratio < 1e-5", true},
        {"ratio > 1E-7", true},
        {"ratio == 1e-6", true},
        {"ratio < 2.5e+3 AND ratio > -1e2", true},
        {"ratio >= .5e-5", false},
    };
    for (const auto &c : cases) {
        QString error;
        const TWCondition condition = TWCondition::parse(QString::fromLatin1(c.format), &error);
        ASSERT_TRUE(condition.isValid()) << c.format << ": " << error.toStdString();
        EXPECT_EQ(condition.evaluate(&s), c.expected) << c.format;
    }
}

TEST(TWCondition, RecordsTheKeysItReads)
{
    const TWCondition condition = TWCondition::parse(QStringLiteral("splitView != 0 AND (mode == 'a' OR splitView > 3)"));
    EXPECT_EQ(condition.keys, (QStringList{QStringLiteral("splitView"), QStringLiteral("mode")}));
}

TEST(TWCondition, RejectsMalformedTextWithAReason)
{
    for (const char *bad : {"", "splitView !=", "== 3", "(splitView == 1", "mode == 'open", "splitView == 1 extra", "a # 3", "splitView == 1e", "splitView == 1e+"}) {
        QString error;
        EXPECT_FALSE(TWCondition::parse(QString::fromLatin1(bad), &error).isValid()) << bad;
        EXPECT_FALSE(error.isEmpty()) << bad;
    }
}
