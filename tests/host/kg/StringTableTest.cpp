#include "kg/VGBundle.h"
#include "kg/VGGraphFramework.h"
#include "kg/VGStringTable.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "TestFiles.h"

namespace {

VGStringTable parsed(const QString &text)
{
    VGStringTable table;
    QString error;
    EXPECT_TRUE(VGStringTable::parse(text, &table, &error)) << error.toStdString();
    return table;
}

QString parseError(const QString &text)
{
    VGStringTable table;
    QString error;
    EXPECT_FALSE(VGStringTable::parse(text, &table, &error)) << "parsed: " << text.toStdString();
    return error;
}

} // namespace

TEST(StringTable, ReadsEntriesCommentsAndEscapes)
{
    const VGStringTable table = parsed(QStringLiteral(
        "/* A header comment\n   over two lines. */\n"
        "\"Plain\" = \"Value\";\n"
        "// a line comment\n"
        "\"Key with %lu\"=\"Best of %lu months\" ;\n"
        "Unquoted_key.1 = \"line one\\nline two\\t\\\"quoted\\\" \\\\ end\";\n"
        "\"Soft\" = \"Llan\\U00ADfair\";\n"
        "\"Astral\" = \"\\UD83D\\UDE00\";\n"
        "\"Octal\" = \"\\101\";\n"
        "\"Alone\";\n"
        "\"Plain\" = \"Replaced\";\n"));
    EXPECT_EQ(table.keys(), (QStringList{"Plain", "Key with %lu", "Unquoted_key.1", "Soft", "Astral", "Octal", "Alone"}));
    EXPECT_EQ(table.value("Plain"), "Replaced");
    EXPECT_EQ(table.value("Key with %lu"), "Best of %lu months");
    EXPECT_EQ(table.value("Unquoted_key.1"), "line one\nline two\t\"quoted\" \\ end");
    EXPECT_EQ(table.value("Soft"), QString::fromUtf8("Llan\u00adfair"));
    EXPECT_EQ(table.value("Astral"), QString::fromUtf8("\U0001F600"));
    EXPECT_EQ(table.value("Octal"), "A");
    EXPECT_EQ(table.value("Alone"), "Alone");
    EXPECT_TRUE(table.value("Missing").isNull());
    EXPECT_EQ(parsed(QString()).size(), 0);
    EXPECT_EQ(parsed(QStringLiteral("  // only a comment")).size(), 0);
}

TEST(StringTable, SaysWhereAMalformedTableGoesWrong)
{
    EXPECT_EQ(parseError(QStringLiteral("\"a\" = \"b\";\n\"c\" = \"d\"\n\"e\" = \"f\";")),
              "line 3, column 1: expected ';' after the entry \"c\", found '\"'");
    EXPECT_EQ(parseError(QStringLiteral("\"a\" = \"b\"")), "line 1, column 10: missing ';' after the entry \"a\" at the end of the file");
    EXPECT_EQ(parseError(QStringLiteral("\"a\" = \"b;\n")), "line 1, column 7: the string is never closed with '\"'");
    EXPECT_EQ(parseError(QStringLiteral("\"a\" = \"b\";\n/* open")), "line 2, column 1: the comment is never closed with */");
    EXPECT_EQ(parseError(QStringLiteral("\"a\" = \"\\q\";")), "line 1, column 9: unknown escape '\\q'");
    EXPECT_EQ(parseError(QStringLiteral("\"a\" = \"\\U12\";")), "line 1, column 12: \\U must be followed by four hexadecimal digits");
    EXPECT_EQ(parseError(QStringLiteral("\"a\" = \"\\UD83D\";")),
              "line 1, column 14: a high surrogate must be followed by a \\U escape of its low surrogate");
    EXPECT_EQ(parseError(QStringLiteral("\"a\" = ;")), "line 1, column 7: expected a value (a quoted string), found ';'");
    EXPECT_EQ(parseError(QStringLiteral("\"a\" =")), "line 1, column 6: the file ends where the value of \"a\" should be");
    EXPECT_EQ(parseError(QStringLiteral("= \"b\";")), "line 1, column 1: expected a key (a quoted string), found '='");

    // A refused table leaves what the caller had.
    VGStringTable table = parsed(QStringLiteral("\"kept\" = \"yes\";"));
    EXPECT_FALSE(VGStringTable::parse(QStringLiteral("\"broken\""), &table, nullptr));
    EXPECT_EQ(table.value("kept"), "yes");
}

TEST(StringTable, LoadsUtf8AndUtf16FilesAndRefusesOtherBytes)
{
    QTemporaryDir dir;
    const QString text = QString::fromUtf8("\"k\" = \"Zürich 米兰\";");
    ASSERT_TRUE(writeTestFile(dir.filePath("utf8.strings"), text.toUtf8()));
    QByteArray utf16("\xff\xfe", 2);
    utf16.append(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    ASSERT_TRUE(writeTestFile(dir.filePath("utf16.strings"), utf16));
    ASSERT_TRUE(writeTestFile(dir.filePath("latin1.strings"), QByteArray("\"k\" = \"Z\xfcrich\";")));

    for (const char *name : {"utf8.strings", "utf16.strings"}) {
        VGStringTable table;
        QString error;
        ASSERT_TRUE(VGStringTable::load(dir.filePath(name), &table, &error)) << error.toStdString();
        EXPECT_EQ(table.value("k"), QString::fromUtf8("Zürich 米兰")) << name;
    }
    VGStringTable table;
    QString error;
    EXPECT_FALSE(VGStringTable::load(dir.filePath("latin1.strings"), &table, &error));
    EXPECT_EQ(error, dir.filePath("latin1.strings") + ": not valid UTF-8 or UTF-16 text");
    EXPECT_FALSE(VGStringTable::load(dir.filePath("missing.strings"), &table, &error));
    EXPECT_TRUE(error.startsWith(dir.filePath("missing.strings") + ": ")) << error.toStdString();
}

TEST(Bundle, LooksKeysUpInItsTablesAndAnswersNothingFromABrokenOne)
{
    QTemporaryDir dir;
    ASSERT_TRUE(writeTestFile(dir.filePath("de.lproj/Localizable.strings"), QByteArray("\"Hello\" = \"Hallo\";")));
    ASSERT_TRUE(writeTestFile(dir.filePath("de.lproj/Other.strings"), QByteArray("\"Hello\" = \"Servus\";")));
    ASSERT_TRUE(writeTestFile(dir.filePath("de.lproj/Broken.strings"), QByteArray("\"Hello\" = \"Hallo\"")));
    const VGBundle bundle(dir.filePath("de.lproj"));
    EXPECT_EQ(bundle.localizedStringForKey("Hello"), "Hallo");
    EXPECT_EQ(bundle.localizedStringForKey("Hello", QString(), "Other"), "Servus");
    EXPECT_TRUE(bundle.localizedStringForKey("Missing").isNull());
    EXPECT_EQ(bundle.localizedStringForKey("Missing", "fallback"), "fallback");
    EXPECT_TRUE(bundle.localizedStringForKey("Hello", QString(), "Broken").isNull());
    const VGStringTable *table = nullptr;
    QString error;
    EXPECT_FALSE(bundle.loadTable("Broken", &table, &error));
    EXPECT_TRUE(error.contains("Broken.strings: line 1, column 18: missing ';'")) << error.toStdString();
}

TEST(GraphFramework, ShipsCleanTablesAndCanBePointedElsewhere)
{
    const QString builtIn = VGGraphFramework::path();
    const QStringList languages = QDir(builtIn).entryList({"*.lproj"}, QDir::Dirs);
    EXPECT_GE(languages.size(), 14);
    for (const QString &language : languages) {
        VGStringTable table;
        QString error;
        EXPECT_TRUE(VGStringTable::load(QDir(builtIn).filePath(language + "/Localizable.strings"), &table, &error)) << error.toStdString();
        EXPECT_EQ(table.size(), 22) << language.toStdString();
        for (const QString &key : table.keys())
            EXPECT_EQ(key.contains("%lu"), table.value(key).contains("%lu")) << language.toStdString() << " " << key.toStdString();
    }
    VGGraphFramework::setPath("/elsewhere");
    EXPECT_EQ(VGGraphFramework::path(), "/elsewhere");
    VGGraphFramework::setPath(QString());
    EXPECT_EQ(VGGraphFramework::path(), builtIn);
}
