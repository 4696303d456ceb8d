#pragma once

#include <QString>

namespace varnow {

/// The parts of a line written as its name followed by its name index in parentheses, or as the bare name.
struct LineChoice
{
    QString name;            ///< the text before "(", or all of it
    QString index = "0";     ///< the text between "(" and the first ")" after it
    bool hasIndex = false;   ///< there is a pair of parentheses
    bool isUnclosed = false; ///< there is "(" without a ")" after it; the name is then the whole text
};

LineChoice parseLineChoice(const QString &text);

} // namespace varnow
