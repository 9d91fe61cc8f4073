#pragma once

#include <QString>

namespace ui {

// Text for a Qt button shown as written: a lone '&' would otherwise mark a keyboard mnemonic.
inline QString buttonText(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace ui
