#include "util/modDiagnostics.h"

#include "base/text.h"

namespace varnow {

void DebugPrint(const QString &) {}

QString trapText(const QString &trapName, const RuntimeError &error, const QStringList &details)
{
    QStringList lines{trapName, QStringLiteral("Error: %1").arg(error.number()), error.description()};
    lines += details;
    return lines.join(lineBreak);
}

} // namespace varnow
