#include "app/commandLine.h"

#include "base/text.h"
#include "storage/version.h"

#include <QTextStream>

#include <cstring>

namespace varnow {

namespace {

constexpr qsizetype mostArguments = 10;

constexpr QLatin1String eightArguments("configuration-server configuration-database configuration-user "
                                       "configuration-password velmora-server velmora-database velmora-user "
                                       "velmora-password");

} // namespace

QString takeArgumentText(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments += QString::fromLocal8Bit(argv[i]);
        std::memset(argv[i], 0, std::strlen(argv[i]));
    }
    return arguments.join(u' ');
}

QStringList splitArguments(const QString &argumentText)
{
    return QString(argumentText).replace(u'\t', u' ').split(u' ', Qt::SkipEmptyParts).mid(0, mostArguments);
}

void takeConnectionSettings(const QStringList &arguments, Session &session)
{
    const auto settingsFrom = [&arguments](qsizetype first) -> db::ConnectionSettings {
        const QString &password = arguments[first + 3];
        return {arguments[first], arguments[first + 1], arguments[first + 2],
                password == "\"\"" ? QString() : password};
    };
    session.configurationDatabase = settingsFrom(0);
    session.velmoraDatabase = settingsFrom(4);
}

bool printInformation(const QString &argumentText)
{
    QTextStream out(stdout);
    if (argumentText == "--version")
        out << versionText() << '\n';
    else if (argumentText == "--help" || argumentText == "-h")
        out << "Usage: varnow [" << eightArguments
            << "]\n"
               "       varnow --demo | --help | --version\n"
               "Edits the lines and fields of upload messages in a SQL Server database.\n"
               "The server (sqlite) means an SQLite file; its path is then the database.\n"
               "A password of two double quotes (\"\") is the empty password.\n"
               "Without words the program asks for the connection values.\n"
               "With --demo it opens a sample database of your own.\n";
    else
        return false;
    return true;
}

QString partialCommandLineMessage()
{
    return "The command line must hold eight words, separated by blanks:" + lineBreak + "  " +
           QString(eightArguments).replace(u' ', lineBreak + "  ") + lineBreak +
           "An empty password is written as '\"\"'.";
}

} // namespace varnow
