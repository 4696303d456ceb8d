#pragma once

#include <QString>
#include <QStringView>

namespace varnow {

/// Line break of every message: a carriage return and a line feed.
inline constexpr QLatin1String lineBreak("\r\n");

/// The text without space characters (U+0020) at both ends; other white space stays.
QString trim(const QString &text);

/// The same for a view: the part of it between its first and its last character that is no space.
inline QStringView trimmedView(QStringView text) // inline, for the stores compare by it everywhere
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

/// "1 line", "2 lines": how many there are of what a noun names that takes an s.
QString counted(qint64 count, const QString &noun);

/// True when nothing but space characters (U+0020) is in the text.
bool isBlank(QStringView text);

} // namespace varnow
