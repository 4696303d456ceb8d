#pragma once

#include "storage/Session.h"

#include <QString>
#include <QStringList>

namespace varnow {

/// The words of the command line that the program takes, and what they stand for.
inline constexpr int commandLineWords = 8;

/// The only word that opens the sample database.
inline constexpr QLatin1String demoWord("--demo");

/// Takes the text of the arguments and blanks it where the system keeps it, so that nobody reads a password
/// in the process list.
QString takeArgumentText(int argc, char **argv);

/// Splits the argument text at blanks and tabs; there is no quoting. What comes after the tenth word is
/// ignored.
QStringList splitWords(const QString &argumentText);

/// Takes the connection settings out of at least commandLineWords words. A password word of two double quotes
/// is the empty password.
void takeConnectionSettings(const QStringList &words, Session &session);

/// Prints what the only word asks for, help or version; returns whether there was such a word.
bool printInformation(const QString &argumentText);

/// What to say of a command line of too few words.
QString partialCommandLineMessage();

} // namespace varnow
