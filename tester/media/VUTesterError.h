#pragma once
// The generic error the media code hands to callers and completion handlers: no domain, no code,
// only a debug description.

#include <QString>

#include <optional>

struct VUTesterError {
    QString debugDescription;
};

// An error or none.
using VUTesterOptionalError = std::optional<VUTesterError>;
