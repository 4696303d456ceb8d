#include "app/start.h"

#include "app/commandLine.h"
#include "app/demo.h"
#include "app/leftChanges.h"
#include "app/process.h"
#include "base/guarded.h"
#include "base/text.h"
#include "editor/EditorWindow.h"
#include "signin/SignInDialog.h"
#include "storage/catalogue.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"
#include "ui/RunWindow.h"

namespace varnow {

namespace {

void refuse(const QString &text)
{
    ui::show({.text = text, .icon = ui::Icon::Critical});
}

/// Asks for the settings of one database. Returns whether the start can go on; if not, says why.
bool signIn(DatabaseRole role, db::ConnectionSettings &settings)
{
    const SignIn answer = SignInDialog(role).ask();
    settings = answer.settings;
    const auto end = [](const QString &reason) {
        refuse(reason + lineBreak + "The configuration cannot continue.");
        return false;
    };
    switch (answer.outcome) {
    case SignIn::Outcome::Accepted:
        return true;
    case SignIn::Outcome::Canceled:
        return end("The database login was canceled.");
    case SignIn::Outcome::Unreadable:
        return end("There was a serious problem with the supplied data.");
    }
    Q_UNREACHABLE();
}

/// Leads the session to the sample database. Returns whether the start can go on; if not, says why.
bool openDemo(Session &session)
{
    const auto open = [&session] {
        const QString path = demoDatabase();
        session.configurationDatabase = session.velmoraDatabase = {"(sqlite)", path, "demo", {}};
        session.greeting = "This is the sample database, a copy of your own: " + path;
        return true;
    };
    return guarded(open, [](const RuntimeError &error) {
        refuse("The sample database could not be made." + lineBreak + error.description());
        return false;
    });
}

/// Takes what leads to both databases from the arguments or the user. Returns an exit code: where it is not
/// that of success the start ends here, and the reason has been told.
int takeSettings(const QStringList &arguments, Session &session)
{
    if (arguments == QStringList(demoArgument))
        return openDemo(session) ? exitCodes::Success : exitCodes::Failure;
    if (arguments.isEmpty()) {
        const bool signedIn = signIn(DatabaseRole::Configuration, session.configurationDatabase) &&
                              signIn(DatabaseRole::Velmora, session.velmoraDatabase);
        return signedIn ? exitCodes::Success : exitCodes::Failure;
    }
    if (arguments.size() < argumentCount) {
        refuse(partialCommandLineMessage());
        return exitCodes::Usage;
    }
    takeConnectionSettings(arguments, session);
    return exitCodes::Success;
}

void tellSubstitution(DefaultConfiguration::Problem problem)
{
    const auto tell = [](const QString &firstLine, const QString &secondLine) {
        ui::show({.text = firstLine + lineBreak + secondLine, .icon = ui::Icon::Information});
    };
    switch (problem) {
    case DefaultConfiguration::Problem::None:
        return;
    case DefaultConfiguration::Problem::QueryFailed:
        return tell("An unexpected problem with the database prevented reading",
                    "the default configuration name, substituting 'Standard'.");
    case DefaultConfiguration::Problem::NoRow:
        return tell("No data was returned from the database for the default ",
                    "configuration name, substituting 'Standard'.");
    case DefaultConfiguration::Problem::Blank:
        return tell("The default configuration name is missing,", "substituting 'Standard'.");
    case DefaultConfiguration::Problem::Unreadable:
        return tell("An unexpected error occurred while reading the database",
                    "for the default configuration name, substituting 'Standard'.");
    }
}

/// Reads the names of the configurations and the one to begin with. Raises errors::UserInterrupt when the
/// user stopped it, and what loadConfigurationNames() raises, after a message. No connection stays open while
/// the user reads one.
void loadCatalogue(Session &session, Run &run)
{
    const auto loadNames = [&] { return loadConfigurationNames(run); };
    session.configurationNames = guarded(loadNames, [&run](const RuntimeError &error) -> QStringList {
        run.close();
        if (error.number() != errors::UserInterrupt)
            ui::show({"An unexpected error occurred while getting the configuration names."});
        throw error;
    });
    const DefaultConfiguration first = loadDefaultConfiguration(run);
    session.defaultConfiguration = first.name;
    if (first.problem == DefaultConfiguration::Problem::None)
        return;
    run.close();
    tellSubstitution(first.problem);
}

/// Reads the catalogue and all records. Returns whether the start can go on; if not, says why.
bool load(Session &session, Document &document)
{
    ui::RunWindow progress;
    const auto loadBoth = [&] {
        Run run(session.configurationDatabase, progress);
        loadCatalogue(session, run);
        const int code = document.load(run);
        if (code == errors::UserInterrupt)
            throw RuntimeError(code);
        if (code != 0)
            tellLoadFailure({"continue, any current information will be lost."});
        return true;
    };
    return guarded(loadBoth, [](const RuntimeError &) {
        ui::show(
            {"There was an unexpected error loading configuration data," + lineBreak + "cannot continue."});
        return false;
    });
}

} // namespace

int start(const QString &argumentText, Session &session)
{
    const int exitCode = takeSettings(splitArguments(argumentText), session);
    if (exitCode != exitCodes::Success)
        return exitCode;
    Document document(session);
    if (!load(session, document))
        return exitCodes::Failure;
    std::vector<LeftFile> settled = offerLeftChanges(document);
    EditorWindow editor(document);
    if (document.keepUnsavedChanges()) { // else the old files are all there is
        for (LeftFile &file : settled)
            file.remove();
    }
    const EndWhenTold endWhenTold([&document] { document.keepUnsavedChanges(); });
    const ui::SessionEnd sessionEnd([&editor] { return editor.maySessionEnd(); });
    editor.show();
    ui::runUntilNoWindowIsLoaded();
    return exitCodes::Success;
}

int runProgram(int argc, char **argv)
{
    forbidCoreFiles();
    shareOneHeap();
    const QString argumentText = takeArgumentText(argc, argv);
    if (printInformation(argumentText))
        return exitCodes::Success;
    int toolkitArguments = 1; // the arguments are the program's own, none is an option of the toolkit
    const ui::Application application(toolkitArguments, argv);
    Session session;
    return start(argumentText, session);
}

} // namespace varnow
