#include "app/commandLine.h"

#include "base/text.h"
#include "storage/version.h"

#include <QTextStream>

#include <cstring>

namespace varnow {

namespace {

constexpr qsizetype wordsRead = 10;

constexpr QLatin1String eightWords("configuration-server configuration-database configuration-user "
                                   "configuration-password velmora-server velmora-database velmora-user "
                                   "velmora-password");

} // namespace

QString takeArgumentText(int argc, char **argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i) {
        words += QString::fromLocal8Bit(argv[i]);
        std::memset(argv[i], 0, std::strlen(argv[i]));
    }
    return words.join(u' ');
}

QStringList splitWords(const QString &argumentText)
{
    return QString(argumentText).replace(u'\t', u' ').split(u' ', Qt::SkipEmptyParts).mid(0, wordsRead);
}

void takeConnectionSettings(const QStringList &words, Session &session)
{
    const auto settingsFrom = [&words](qsizetype first) -> db::ConnectionSettings {
        const QString &password = words[first + 3];
        return {words[first], words[first + 1], words[first + 2], password == "\"\"" ? QString() : password};
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
        out << "Usage: varnow [" << eightWords
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
           QString(eightWords).replace(u' ', lineBreak + "  ") + lineBreak +
           "An empty password is written as '\"\"'.";
}

} // namespace varnow
