#pragma once

#include "base/RuntimeError.h"

#include <QString>
#include <QStringList>

// What the error traps of both stores do with an error. Each returns the error's number.

namespace varnow {

/// Hands the trap's text to the diagnostic sink while gDebugMode is on.
int debugTrap(const QString &trapName, const RuntimeError &error, const QStringList &details = {});

/// Shows the trap's text in a development run.
int developmentTrap(const QString &trapName, const RuntimeError &error);

} // namespace varnow
