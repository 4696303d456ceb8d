#pragma once

#include "storage/Session.h"

#include <QString>
#include <QStringList>

namespace varnow {

/// How many arguments lead to both databases.
inline constexpr int argumentCount = 8;

/// The only argument that opens the sample database.
inline constexpr QLatin1String demoArgument("--demo");

/// Takes the text of the arguments and blanks it where the system keeps it, so that nobody reads a password
/// in the process list.
QString takeArgumentText(int argc, char **argv);

/// Splits the argument text at blanks and tabs; there is no quoting. What comes after the tenth argument is
/// ignored.
QStringList splitArguments(const QString &argumentText);

/// Takes the connection settings out of at least argumentCount arguments. A password argument of two double
/// quotes is the empty password.
void takeConnectionSettings(const QStringList &arguments, Session &session);

/// Prints what the only argument asks for, help or version; returns whether there was such an argument.
bool printInformation(const QString &argumentText);

/// What to say of a command line of too few arguments.
QString partialCommandLineMessage();

} // namespace varnow
