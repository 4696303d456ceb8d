#pragma once

#include <QString>

#include <optional>

namespace varnow {

/// The parts of a line written as its name followed by its name index in parentheses, or as the bare name.
struct LineChoice
{
    QString name;                 ///< the text before "(", or all of it
    std::optional<QString> index; ///< the text between "(" and the first ")" after it, if both are there
    bool isUnclosed = false;      ///< there is "(" without a ")" after it; the name is then the whole text
};

LineChoice parseLineChoice(const QString &text);

} // namespace varnow
