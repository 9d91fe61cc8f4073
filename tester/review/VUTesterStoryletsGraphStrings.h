#pragma once
// The knowledge-graph framework's Storylet title formats, read straight from its language folders:
// which languages there are, the 22 title-format keys by title category, the text of a key in a
// language as a title shows it, and the title font that goes with a key's category.

#include "shell/VUTesterExport.h"

#include <QCache>
#include <QHash>
#include <QMap>
#include <QStringList>

class VGBundle;

class VUTESTER_EXPORT VUTesterStoryletsGraphStrings {
public:
    // The catalogue of the framework the host ships; made on first use, kept for the process.
    static VUTesterStoryletsGraphStrings *sharedInstance();

    // Indexes the language folders ("<code>.lproj") of the framework folder at `frameworkPath`
    // (the host's framework when empty). A missing folder has no languages.
    explicit VUTesterStoryletsGraphStrings(const QString &frameworkPath = QString());
    ~VUTesterStoryletsGraphStrings();

    // Language codes, sorted case-insensitively.
    const QStringList &languages() const { return m_languages; }
    // Keys of categories 1 to 6 in that order, each category's in table order.
    static const QStringList &keys();
    // Title category (1 to 6) to its keys.
    static const QMap<int, QStringList> &_categorizedKeys();

    // The text of `key` in `language` as a title shows it: "%lu" filled with 3 and each "\n"
    // (backslash, n) a line break. Null when the language or the key is unknown.
    QString localizedStringForKey(const QString &key, const QString &language) const;
    // The title font of the last category holding `key`; null for a key in none.
    static QString titleFontNameForKey(const QString &key);

private:
    QHash<QString, QString> _bundleURLs;
    // Bundles are cheap to reopen; the cache may let any of them go.
    mutable QCache<QString, VGBundle> _cachedBundles;
    QStringList m_languages;
};

// A printf-style format with one integer argument: %lu, %d, %ld, %llu, %i, %u, %zu and the
// positional %1$lu forms take `number`, "%%" is a percent sign, anything else stays as it is.
VUTESTER_EXPORT QString VUTesterFormatWithInteger(const QString &format, qint64 number);
