#pragma once

#include <QString>

namespace varnow {

/// Key of a line's node; the message index as a number or as it was typed.
inline QString lineNodeKey(const QString &msgIndex)
{
    return msgIndex + " Line";
}

/// Key of a field's node.
inline QString fieldNodeKey(const QString &msgIndex, const QString &position)
{
    return msgIndex + "." + position + " Field";
}

} // namespace varnow
