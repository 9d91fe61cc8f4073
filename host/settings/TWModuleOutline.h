#pragma once

#include <QJsonObject>
#include <QString>

class TWModule;
class TWSettings;

// A module as data: {"title", "sections": [{"title", "condition", "rows": [...]}]}. Each row has
// "kind" and "title", and where they apply "titleKeyPath" and "shownTitle" (a live title),
// "target" (what a drill-down opens: a key path or a class), "keyPath" and "value" (the key it
// edits), "minimum", "maximum" and "step" (a slider), "action", "condition" and "choices"
// ([{"value", "title"}]). Keys that do not apply are left out.
QJsonObject TWModuleOutlineJson(const TWModule &module, const TWSettings *settings);

// The same as indented text: the title, each section with its title and condition, each row with
// its kind, title, key, current value and choices ("value: title").
QString TWModuleOutline(const TWModule &module, const TWSettings *settings);

// A setting's value as JSON: numbers, booleans, texts, null for nil, and a location as
// {"latitude", "longitude"}.
QJsonValue TWSettingValueJson(const QVariant &value);
