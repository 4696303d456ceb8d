#pragma once

#include "base/RuntimeError.h"

#include <QString>
#include <QStringList>

#include <new>

namespace varnow {

/// The one sink of diagnostic text; it discards the text.
void DebugPrint(const QString &text);

/// The diagnostic text of an error trap: its name, "Error: " and the number, the description, and below
/// them any further lines.
QString trapText(const QString &trapName, const RuntimeError &error, const QStringList &details = {});

/// Runs `body`, which returns a result. A run-time error goes to `trap`, whose result is returned instead.
/// Running out of memory counts as run-time error 7.
template <class Body, class Trap> auto guarded(Body body, Trap trap) -> decltype(body())
{
    try {
        return body();
    } catch (const RuntimeError &error) {
        return trap(error);
    } catch (const std::bad_alloc &) {
        return trap(RuntimeError(7, QStringLiteral("Out of memory")));
    }
}

} // namespace varnow
