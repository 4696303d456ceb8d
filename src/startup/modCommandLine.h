#pragma once

#include <QString>
#include <QStringList>

namespace varnow {

/// Splits the argument text of the process at blanks and tabs; there is no quoting. Element 0 of the result
/// is always empty, the words follow from 1 on; what comes after `maximum` words is ignored.
QStringList GetCommandLine(const QString &argumentText, int maximum = 10);

} // namespace varnow
