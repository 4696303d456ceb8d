#pragma once

#include <QString>

#include <ostream>

/// Lets a failed expectation show its texts.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
