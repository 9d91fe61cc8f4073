#pragma once
// Row and section conditions: a predicate over a settings object's keys, parsed once from text
// such as "internalCancelable != 0" or "sortAlphabetically == 0 AND splitView != 0".
//
// Grammar: comparisons `key OP literal` (OP: == != < <= > >=; literal: a number such as 3, -0.5
// or 1e-5, YES/NO, TRUE/FALSE, nil, or a quoted text) or a bare key (true when non-zero /
// non-empty), joined by AND / OR (also && and ||), NOT (!) and parentheses.

#include <QString>
#include <QStringList>

#include <functional>

class TWSettings;

using TWPredicate = std::function<bool(const TWSettings *)>;

struct TWCondition {
    TWPredicate predicate;
    QString format;   // the text it was parsed from, empty for a predicate object
    QStringList keys; // the keys it reads

    bool isValid() const { return bool(predicate); }
    bool evaluate(const TWSettings *settings) const { return !predicate || predicate(settings); }

    // Parses `format`; on a syntax error returns an invalid condition and sets `error`.
    static TWCondition parse(const QString &format, QString *error = nullptr);
};
