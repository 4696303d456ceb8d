#pragma once

#include <QChar>

namespace varnow::ui {

/// Whether a one-line entry cannot show the character: a line break of any kind, or another control
/// character, which it paints as a blank.
inline bool isLineBreak(QChar character)
{
    constexpr char16_t nextLine = 0x85;
    return (character < u' ' && character != u'\t') || character == nextLine ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

} // namespace varnow::ui
