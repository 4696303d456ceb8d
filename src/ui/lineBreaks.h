#pragma once

#include <QChar>

namespace varnow::ui {

/// Line feed to carriage return, and what Unicode has besides.
inline bool isLineBreak(QChar character)
{
    constexpr char16_t nextLine = 0x85;
    return (character >= u'\n' && character <= u'\r') || character == nextLine ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

} // namespace varnow::ui
