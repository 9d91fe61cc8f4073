#include "storylets/VXTitleSubtitleLabel.h"

#include <QChar>

#include <gtest/gtest.h>

#include "QtPrinters.h"

namespace {

VXTitleSubtitleSpec spec(double size, int lines = 3, double minimumScale = 0.6)
{
    VXTitleSubtitleSpec s;
    s.titleFontName = QStringLiteral("DejaVu Sans");
    s.titleFontSize = size;
    s.subtitleFontSize = 10;
    s.maximumTitleLines = lines;
    s.minimumScaleFactor = minimumScale;
    return s;
}

QStringList linesOf(const QString &title, QSize size, const VXTitleSubtitleSpec &s, double *scale = nullptr)
{
    VXTitleSubtitleLabel label;
    label.setDiagnosticsEnabled(true);
    label.setSpec(s);
    label.setTitleText(title);
    label.setSubtitleText(QStringLiteral("Minneapolis, MN"));
    label.resize(size);
    label.layoutIfNeeded();
    if (scale)
        *scale = label.appliedScaleFactor();
    return label.renderedLines();
}

} // namespace

TEST(TitleSubtitleLabel, BreaksAtSoftHyphensAndLineBreaksShowingWhatAReaderSees)
{
    const QString shy(QChar::SoftHyphen);
    double scale = 0;
    // A word that fits nowhere whole breaks only where its soft hyphens allow, and the break shows a hyphen.
    const QStringList welsh = linesOf("Llanfair" + shy + "pwllgwyngyll" + shy + "gogery", QSize(150, 200), spec(20), &scale);
    ASSERT_GE(welsh.size(), 2);
    EXPECT_TRUE(welsh.first().endsWith('-')) << welsh.join('|').toStdString();
    EXPECT_EQ(welsh.join(QString()).remove('-'), "Llanfairpwllgwyngyllgogery");
    EXPECT_FALSE(welsh.join(QString()).contains(QChar::SoftHyphen));

    EXPECT_EQ(linesOf("This weqk\nin history", QSize(300, 200), spec(20), &scale), (QStringList{"This weqk", "in history"}));
    EXPECT_EQ(scale, 1.0);
    const QStringList wrapped = linesOf("Best of the year", QSize(80, 200), spec(20));
    EXPECT_GT(wrapped.size(), 1);
    EXPECT_EQ(wrapped.join(' '), "Best of the year");
}

TEST(TitleSubtitleLabel, ShrinksToFitAndCutsWhatStillDoesNot)
{
    double scale = 0;
    // One long word: too wide at full size, fits once shrunk.
    const QStringList shrunk = linesOf("Graubünden", QSize(110, 200), spec(24), &scale);
    EXPECT_EQ(shrunk, QStringList{"Graubünden"});
    EXPECT_LT(scale, 1.0);
    EXPECT_GE(scale, 0.6);

    // Far too much text for two lines even at the smallest size: the second line ends in an ellipsis.
    const QStringList cut = linesOf("one two three four five six seven eight nine ten eleven twelve", QSize(100, 200), spec(20, 2), &scale);
    ASSERT_EQ(cut.size(), 2);
    EXPECT_TRUE(cut.last().endsWith(QChar(0x2026))) << cut.join('|').toStdString();
    EXPECT_DOUBLE_EQ(scale, 0.6);

    // Right-to-left and Han text are laid out too, and nothing is reported without diagnostics.
    EXPECT_EQ(linesOf(QString::fromUtf8("טיול מסביב\nלעולם"), QSize(300, 200), spec(20)).size(), 2);
    EXPECT_EQ(linesOf(QString::fromUtf8("米兰中央车站,\n意大利"), QSize(300, 200), spec(20)).last(), QString::fromUtf8("意大利"));
    VXTitleSubtitleLabel quiet;
    quiet.setTitleText("Quiet");
    quiet.resize(100, 100);
    quiet.layoutIfNeeded();
    EXPECT_TRUE(quiet.renderedLines().isEmpty());
}
