#include "startup/Main.h"

#include "base/text.h"
#include "editor/frmLinesConfig.h"
#include "startup/frmDatabaseInfo.h"
#include "startup/modCommandLine.h"
#include "startup/modConfigurations.h"
#include "startup/modGlobals.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"
#include "util/modForms.h"
#include "util/modMsgbox.h"

#include <QTextStream>

#include <array>
#include <cstring>

namespace varnow {

namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

const QString eightWords = "configuration-server configuration-database configuration-user "
                           "configuration-password velmora-server velmora-database velmora-user "
                           "velmora-password";

/// Takes the text of the arguments and blanks it where the system keeps it.
QString takeArgumentText(int argc, char **argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i) {
        words += QString::fromLocal8Bit(argv[i]);
        std::memset(argv[i], 0, std::strlen(argv[i]));
    }
    return words.join(u' ');
}

/// Prints what the only word asks for; returns whether there was such a word.
bool printInformation(const QString &argumentText)
{
    QTextStream out(stdout);
    if (argumentText == "--version")
        out << "varnow " VARNOW_VERSION "\n";
    else if (argumentText == "--help")
        out << "Usage: varnow [" << eightWords
            << "]\n"
               "Edits the lines and fields of upload messages in a SQL Server database.\n"
               "The server (sqlite) means an SQLite file; its path is then the database.\n"
               "A password of two double quotes (\"\") is the empty password.\n"
               "Without words the program asks for the connection values.\n";
    else
        return false;
    return true;
}

void refusePartialCommandLine()
{
    QString words = eightWords;
    words.replace(u' ', lineBreak + "  ");
    ShowMessage("The command line must hold eight words, separated by blanks:" + lineBreak + "  " + words,
                ui::style::Critical, gMsgTitle);
}

void takeConnectionValues(const QStringList &words)
{
    const std::array<QString *, 8> values{&gCfgServer,   &gCfgDatabase,    &gCfgUser,
                                          &gCfgPassword, &gVelmoraServer,  &gVelmoraDatabase,
                                          &gVelmoraUser, &gVelmoraPassword};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const QString &word = words[static_cast<qsizetype>(i) + 1];
        const bool isPassword = i == 3 || i == 7;
        *values[i] = isPassword && word == "\"\"" ? QString() : word;
    }
}

/// Asks for the values of both databases. Returns whether the start can go on; if not, says why.
bool logIn()
{
    const auto failed = [] {
        return frmDatabaseInfo::Canceled || frmDatabaseInfo::SeriousProblem || frmDatabaseInfo::BadData;
    };
    frmDatabaseInfo dialog;
    frmDatabaseInfo::DatabaseMode = 0;
    dialog.showModal();
    if (!failed()) {
        frmDatabaseInfo::DatabaseMode = 1;
        dialog.showModal();
    }
    if (!failed())
        return true;
    const QString verdict = frmDatabaseInfo::Canceled ? "The database login was canceled."
                            : frmDatabaseInfo::BadData
                                ? "The supplied data was not correct."
                                : "There was a serious problem with the supplied data.";
    ShowMessage(verdict + lineBreak + "The configuration cannot continue.", ui::style::Critical,
                "Configuration");
    return false;
}

} // namespace

int startUp(const QString &argumentText)
{
    const QStringList words = GetCommandLine(argumentText);
    const qsizetype count = words.size() - 1;
    gMsgTitle = "Configuration";
    gDebugMode = false;
    if (count > 0 && count < 8) {
        refusePartialCommandLine();
        return exitUsage;
    }
    if (count > 0)
        takeConnectionValues(words);
    else if (!logIn())
        return exitFailure;

    int result = LoadConfigNames();
    if (result == 0)
        result = LoadDefaultConfigName();
    if (result != 0) {
        ShowMessage("There was an unexpected error loading configuration data," + lineBreak +
                    "cannot continue.");
        UnloadAllForms();
        return exitFailure;
    }
    frmLinesConfig editor;
    editor.show();
    ui::runUntilNoWindowIsLoaded();
    return 0;
}

int Main(int argc, char **argv)
{
    const QString argumentText = takeArgumentText(argc, argv);
    if (printInformation(argumentText))
        return 0;
    int toolkitArguments = 1; // the words are the program's own, none is an option of the toolkit
    const ui::Application application(toolkitArguments, argv);
    return startUp(argumentText);
}

} // namespace varnow
