// The start of the program, from its words or the sign-in to the editor or the end.

#include "support/StartFixture.h"
#include "support/TdsServer.h"

#include "app/commandLine.h"
#include "app/start.h"
#include "base/folders.h"
#include "db/codes.h"

#include <QApplication>
#include <QFile>
#include <QFontMetrics>
#include <QMessageBox>
#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QTest>

namespace varnow::test {

namespace {

struct StartTest : StartFixture
{
    /// Starts the program with these words behind its name.
    void expectStart(const QString &words, const Actions &actions, int exitCode, const Boxes &boxes)
    {
        session = {};
        expectBoxesOf([&] { EXPECT_EQ(start(words, session), exitCode); }, actions, boxes);
    }

    /// The settings that the program holds, those of both databases.
    QStringList stored() const
    {
        return entriesOf(session.configurationDatabase) + entriesOf(session.velmoraDatabase);
    }

    Session session;
    const QString eightArguments = (valid.mid(0, 3) + QStringList{"\"\"", "5", "6", "7", "8"}).join(' ');
    const Box namesFailed{"An unexpected error occurred while getting the configuration names."};
    const Box cannotContinue{"There was an unexpected error loading configuration data,\r\ncannot continue."};
};

/// The action, in a dialog that must show the whole of this prompt.
Action under(const QString &prompt, const Action &action)
{
    return [=](const Driver &user) {
        const QWidget *window = user.control("login")->window();
        EXPECT_EQ(window->windowTitle(), prompt);
        QFont bold = window->font();
        bold.setBold(true);
        constexpr int buttons = 80;
        EXPECT_GT(window->width(), QFontMetrics(bold).horizontalAdvance(prompt) + buttons);
        EXPECT_EQ(window->minimumSize(), window->maximumSize());
        action(user);
    };
}

using ServerTest = StartTest;
using DemoTest = StartTest;

const auto ending = [](const QString &reason) {
    return Boxes{critical(reason + "\r\nThe configuration cannot continue.")};
};

} // namespace

// A round left out, shown twice or after a failure; entries kept for the other database; an older schema that
// stops the start, or an unreadable one that does not; the wrong last box; an exit code that hides it.
TEST_P(StartTest, AsksForBothDatabasesBeforeTheEditor)
{
    const QString first = "Enter configuration database information.";
    const QString second = "Enter Velmora database information.";
    const QStringList other{valid[0], valid[1], " other ", ""};
    const Boxes canceled = ending("The database login was canceled.");
    const Boxes problem{critical("A Username is required.", "ERROR")};
    const auto nowhere = [this](const QString &server) {
        return logIn({GetParam() == Engine::Sqlite ? valid[0] : server, valid[1] + "x", "user", ""});
    };
    expectStart("", {under(first, logIn(valid)), under(second, logIn(other)), close}, 0, exact + exact);
    EXPECT_EQ(stored(), valid + other);
    EXPECT_EQ(session.configurationNames, QStringList({"Standard", "Fixed Length"}));
    expectStart(" \t", {under(first, cancel)}, 1, canceled);
    expectStart("", {under(first, logIn(valid)), under(second, cancel)}, 1, exact + canceled);
    expectStart("", {under(first, logIn({"s", "d", "", ""})), under(first, cancel)}, 1, problem + canceled);
    database.run("UPDATE database_version SET database_version = 2");
    expectStart("", {logIn(valid), nowhere("no-such-host.invalid"), close}, 0, earlier + earlier);
    expectStart("", {nowhere("127.0.0.1,1")}, 1,
                errorBox(db::codes::Failure) + unreadable +
                    ending("There was a serious problem with the supplied data."));
}

// Boxes that a test's handler sees and a user does not.
TEST_P(StartTest, ShowsEveryBoxOnTheScreen)
{
    const auto before = ui::setMessageBoxHandler({});
    QStringList seen;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            seen += box->windowTitle() + ": " + box->text().section("\r\n", -1);
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        }
    });
    user.start();
    expectStart("", {logIn(valid), cancel}, 1, {});
    ui::setMessageBoxHandler(before);
    EXPECT_EQ(seen, QStringList({"Configuration:   success, the versions match exactly.",
                                 "Reminder: for the Pentaro application.",
                                 "Configuration: The configuration cannot continue."}));
}

// A word in the wrong place, an empty password in the wrong one, a ninth word that counts; a start with
// half of the values; words that the next sign-in would propose.
TEST_P(StartTest, TakesTheValuesFromEightWords)
{
    const Box refusal = critical("The command line must hold eight words, separated by blanks:\r\n"
                                 "  configuration-server\r\n  configuration-database\r\n"
                                 "  configuration-user\r\n  configuration-password\r\n"
                                 "  velmora-server\r\n  velmora-database\r\n  velmora-user\r\n"
                                 "  velmora-password\r\nAn empty password is written as '\"\"'.");
    for (int count = 1; count < 8; ++count) {
        expectStart(QStringList(count, "word").join(' '), {}, 2, {refusal});
        EXPECT_EQ(stored(), nothing + nothing);
    }
    const QString remembered = stateFolder() + "/signIn.ini";
    QFile::remove(remembered);
    const QString configuration = valid.mid(0, 3).join(' ') + " \"\"";
    const QStringList values = valid.mid(0, 3) + QStringList("");
    expectStart(configuration + " \tserver database \"\" \"\" nine ten eleven", {close}, 0, {});
    EXPECT_EQ(stored(), values + QStringList({"server", "database", "\"\"", ""}));
    expectStart(configuration + " \"my server\" \"\" \"\"x", {close}, 0, {});
    EXPECT_EQ(stored(), values + QStringList({"\"my", "server\"", "\"\"", "\"\"x"}));
    EXPECT_FALSE(QFile::exists(remembered));
}

// An outcome with another outcome's message, or one that ends the start; an editor on half a catalogue.
TEST_P(StartTest, SurvivesEveryCatalogueButOneWithANullName)
{
    const std::pair<const char *, Box> cases[] = {
        {"UPDATE Misc_upload_constants SET DefaultConfigName = ' '",
         note("The default configuration name is missing,\nsubstituting 'Standard'.")},
        {"UPDATE Misc_upload_constants SET DefaultConfigName = NULL",
         note("An unexpected error occurred while reading the database\n"
              "for the default configuration name, substituting 'Standard'.")},
        {"DELETE FROM Misc_upload_constants", note("No data was returned from the database for the default \n"
                                                   "configuration name, substituting 'Standard'.")},
        {"DROP TABLE Misc_upload_constants",
         note("An unexpected problem with the database prevented reading\n"
              "the default configuration name, substituting 'Standard'.")}};
    for (const auto &[sql, box] : cases) {
        database.run(sql);
        expectStart(eightArguments, {close}, 0, {box});
        EXPECT_EQ(session.defaultConfiguration, "Standard");
    }
    database.run("INSERT INTO data_extractor_config VALUES (NULL)");
    expectStart(eightArguments, {}, 1, {namesFailed, cannotContinue});
}

// A failed load that ends the start, or that nobody tells of.
TEST_P(StartTest, OpensTheEditorWithoutRecordsThatCannotBeLoaded)
{
    database.run("ALTER TABLE LabLineConfig RENAME TO gone");
    expectStart(eightArguments, {close}, 0,
                {{"An unexpected error occurred while reading the\r\ncurrent Line and Line Fields "
                  "configuration.\r\nNo current information is available and, if you\r\ncontinue, any "
                  "current information will be lost."},
                 {"There is no line configuration\r\ndata to display."}});
}

// A silent server that leaves the screen empty or cannot be given up; an editor without what was not waited
// for.
TEST_P(ServerTest, ShowsWhatItWaitsForAndStops)
{
    TdsServer *server = database.server();
    const auto expectStop = [&](const QString &what) {
        const Action stop = [&](const Driver &user) {
            EXPECT_EQ(user.text("what"), what);
            user.click("stop");
        };
        expectStart(eightArguments, {stop}, 1, {cannotContinue});
        server->clearFaults();
    };
    server->failLogins({.kind = Fault::Hang});
    expectStop("Connecting to " + valid[0]);
    server->failStatements({.kind = Fault::Hang}, "data_extractor_config");
    expectStop("Reading the configurations");
    server->failStatements({.kind = Fault::Hang}, "LabLineFieldConfig");
    expectStop("Reading the fields");
}

// A log-in for every query, which takes long on a distant server; a connection that stays open behind a box.
TEST_P(ServerTest, LogsInOnceAndAgainBehindABox)
{
    const auto log = ui::setMessageBoxHandler({});
    ui::setMessageBoxHandler([&](const Box &box) {
        EXPECT_TRUE(database.server()->waitUntilLeft()) << qPrintable(box.text);
        return log(box);
    });
    expectStart(eightArguments, {close}, 0, {});
    const std::size_t logins = database.server()->logins().size();
    EXPECT_EQ(logins, 2U); // for the records, and for the data field names
    database.run("DELETE FROM Misc_upload_constants");
    expectStart(eightArguments, {close}, 0,
                {note("No data was returned from the database for the default \n"
                      "configuration name, substituting 'Standard'.")});
    EXPECT_EQ(database.server()->logins().size(), logins + 3);
    database.run("INSERT INTO data_extractor_config VALUES (NULL)");
    expectStart(eightArguments, {}, 1, {namesFailed, cannotContinue});
    ui::setMessageBoxHandler(log);
}

// A sample that is not made, that replaces the user's changes, or that nobody finds.
TEST_P(DemoTest, OpensACopyThatIsMadeOnce)
{
    const QByteArray state = qgetenv("XDG_STATE_HOME");
    const QString copy = stateFolder() + "/demo.db";
    expectStart("--demo", {close}, 0, {});
    EXPECT_EQ(session.configurationNames, QStringList({"Standard", "Fixed Length"}));
    EXPECT_TRUE(session.greeting.endsWith(copy));
    QFile::remove(copy);
    database.run("UPDATE Misc_upload_constants SET DefaultConfigName = 'Fixed Length'");
    QFile::copy(valid[1], copy); // what the user made of it
    expectStart("--demo", {close}, 0, {});
    EXPECT_EQ(session.defaultConfiguration, "Fixed Length");
    QFile::remove(copy);
    qputenv("XDG_STATE_HOME", "/proc/nowhere");
    expectStart("--demo", {}, 1,
                {critical("The sample database could not be made.\r\n"
                          "The folder /proc/nowhere/varnow cannot be made.")});
    qputenv("XDG_STATE_HOME", state);
}

// Quotes that group, separators that count, words behind the last one allowed.
TEST(CommandLine, SplitsAtBlanksAndTabsAlone)
{
    const std::pair<QString, QStringList> cases[] = {
        {" \t ", {}},
        {"\t one \t\ttwo  ", {"one", "two"}},
        {"\"two words\" \"\"", {"\"two", "words\"", "\"\""}},
        {"a\nb\u00a0c", {"a\nb\u00a0c"}},
        {"1 2 3 4 5 6 7 8 9 10 11 12 ", {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}}};
    for (const auto &[text, words] : cases)
        EXPECT_EQ(splitArguments(text), words) << qPrintable(text);
}

// Help that needs a display, or that counts as a server's name; a start without one that ends in a crash.
TEST(Program, TellsAboutItselfWithoutADisplay)
{
    const auto output = [](const QStringList &words, int exitCode = 0) {
        QProcessEnvironment dark = QProcessEnvironment::systemEnvironment();
        for (const QString name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "QT_QPA_PLATFORM"})
            dark.remove(name);
        QProcess program;
        program.setProcessEnvironment(dark);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(VARNOW_PROGRAM, words);
        program.waitForFinished(-1);
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), exitCode);
        return QString::fromUtf8(program.readAllStandardOutput());
    };
    EXPECT_TRUE(output({"--version"}).startsWith("varnow "));
    const QString help = output({"--help"});
    EXPECT_EQ(output({"-h"}), help);
    EXPECT_EQ(output({}, 1), "varnow: There is no display to open a window on.\n");
    for (const char *word : {"configuration-server", "velmora-password", "(sqlite)", "\"\""})
        EXPECT_TRUE(help.contains(word)) << word;
}

// A password that every user of the machine can read, or that a crash writes to the disk.
TEST(Program, KeepsItsWordsOutOfTheProcessListAndOfCoreFiles)
{
    TestDatabase database(Engine::SqlServer);
    database.server()->failLogins({.kind = Fault::Hang});
    const QStringList words = entriesOf(database.settings());
    QProcess program;
    program.start(VARNOW_PROGRAM, words + words);
    while (program.state() != QProcess::NotRunning && database.server()->logins().empty())
        QTest::qWait(1); // it has read its words once it logs in
    ASSERT_FALSE(database.server()->logins().empty());
    const auto read = [&program](const char *what) {
        QFile file(QStringLiteral("/proc/%1/%2").arg(program.processId()).arg(what));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    EXPECT_EQ(read("cmdline").replace('\0', ""), QByteArray(VARNOW_PROGRAM));
    EXPECT_TRUE(read("limits").contains("Max core file size        0                    0 "));
    EXPECT_EQ(database.server()->logins().front().password, database.settings().password);
    program.kill();
    program.waitForFinished(-1);
}

ON_EVERY_ENGINE(StartTest);
ON_ENGINES(ServerTest, Engine::SqlServer);
ON_ENGINES(DemoTest, Engine::Sqlite);

} // namespace varnow::test
