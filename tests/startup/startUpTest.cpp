// The start of the program, from its words or the login to the editor or the end.

#include "startup/StartUpTest.h"

#include "startup/modCommandLine.h"

#include <QApplication>
#include <QFile>
#include <QFontMetrics>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTest>

namespace varnow::test {

namespace {

/// The action, in a dialog that must show the whole prompt of this mode.
Action inMode(int mode, const Action &action)
{
    return [=](const Driver &user) {
        const QWidget *window = user.control("cmdLogin")->window();
        EXPECT_EQ(window->windowTitle(), mode == 0 ? "Enter configuration database information."
                                                   : "Enter Velmora database information.");
        QFont bold = window->font();
        bold.setBold(true);
        constexpr int buttons = 80;
        EXPECT_GT(window->width(), QFontMetrics(bold).horizontalAdvance(window->windowTitle()) + buttons);
        EXPECT_EQ(window->minimumSize(), window->maximumSize());
        action(user);
    };
}

const auto ending = [](const QString &verdict) {
    return Boxes{{verdict + "\r\nThe configuration cannot continue.", ui::style::Critical}};
};

} // namespace

// A round left out, shown twice or after a failure; an older schema that stops the start, or an unreadable
// one that does not; the wrong last box; an exit code that hides it.
TEST_P(StartUpTest, AsksForBothDatabasesBeforeTheEditor)
{
    const Boxes canceled = ending("The database login was canceled.");
    const Boxes complaint{{"A Username is required.", ui::style::Critical, "ERROR"}};
    const auto nowhere = [this](const QString &server) {
        return logIn({GetParam() == Engine::Sqlite ? valid[0] : server, valid[1] + "x", "user", ""});
    };
    expectStart("", {inMode(0, logIn(valid)), inMode(1, logIn(valid)), close}, 0, exact + exact);
    EXPECT_EQ(gConfigNames, QStringList({"Standard", "Fixed Length"}));
    expectStart(" \t", {inMode(0, cancel)}, 1, canceled);
    expectStart("", {inMode(0, logIn(valid)), inMode(1, cancel)}, 1, exact + canceled);
    expectStart("", {inMode(0, logIn({"s", "d", "", ""})), inMode(0, cancel)}, 1, complaint + canceled);
    database.run("UPDATE database_version SET database_version = 2");
    expectStart("", {logIn(valid), nowhere("no-such-host.invalid"), close}, 0, earlier + earlier);
    expectStart("", {nowhere("127.0.0.1,1")}, 1,
                errorBox(-2147467259) + unreadable +
                    ending("There was a serious problem with the supplied data."));
}

// Boxes that a test's handler sees and a user does not.
TEST_P(StartUpTest, ShowsEveryBoxOnTheScreen)
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
// half of the values; an editor on half a catalogue.
TEST_P(StartUpTest, TakesTheValuesFromEightWords)
{
    const Box refusal{"The command line must hold eight words, separated by blanks:\r\n"
                      "  configuration-server\r\n  configuration-database\r\n"
                      "  configuration-user\r\n  configuration-password\r\n"
                      "  velmora-server\r\n  velmora-database\r\n  velmora-user\r\n  velmora-password",
                      ui::style::Critical};
    for (int count = 1; count < 8; ++count)
        expectStart(QStringList(count, "word").join(' '), {}, 2, {refusal});
    EXPECT_EQ(stored(), nothing + nothing);

    const QString configuration = valid.mid(0, 3).join(' ') + " \"\"";
    const QStringList values = valid.mid(0, 3) + QStringList("");
    expectStart(configuration + " \tserver database \"\" \"\" nine ten eleven", {close}, 0, {});
    EXPECT_EQ(stored(), values + QStringList({"server", "database", "\"\"", ""}));
    expectStart(configuration + " \"my server\" \"\" \"\"x", {close}, 0, {});
    EXPECT_EQ(stored(), values + QStringList({"\"my", "server\"", "\"\"", "\"\"x"}));

    database.run("INSERT INTO data_extractor_config VALUES (NULL)");
    expectStart(configuration + " 5 6 7 8", {}, 1,
                {{"An unexpected error occurred while getting the configuration names."},
                 {"There was an unexpected error loading configuration data,\r\ncannot continue."}});
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
        EXPECT_EQ(GetCommandLine(text), QStringList("") + words) << qPrintable(text);
    EXPECT_EQ(GetCommandLine("one two three", 2), QStringList({"", "one", "two"}));
    EXPECT_EQ(GetCommandLine("one", 0), QStringList(""));
}

// Help that needs a display, or that counts as a server's name.
TEST(Program, TellsAboutItselfWithoutADisplay)
{
    const auto output = [](const QString &word) {
        QProcess program;
        program.start(
            "env", {"-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", "-u", "QT_QPA_PLATFORM", VARNOW_PROGRAM, word});
        program.waitForFinished(-1);
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        return QString::fromUtf8(program.readAllStandardOutput());
    };
    EXPECT_TRUE(output("--version").startsWith("varnow "));
    const QString help = output("--help");
    for (const char *word : {"configuration-server", "velmora-password", "(sqlite)", "\"\""})
        EXPECT_TRUE(help.contains(word)) << word;
}

// A password that every user of the machine can read.
TEST(Program, BlanksItsWordsInTheProcessList)
{
    TestDatabase database(Engine::SqlServer);
    database.server()->failLogins({.kind = Fault::Hang});
    const QStringList words{gCfgServer, gCfgDatabase, gCfgUser, gCfgPassword};
    QProcess program;
    program.start(VARNOW_PROGRAM, words + words);
    while (program.state() != QProcess::NotRunning && database.server()->logins().empty())
        QTest::qWait(1); // it has read its words once it logs in
    ASSERT_FALSE(database.server()->logins().empty());
    QFile list(QStringLiteral("/proc/%1/cmdline").arg(program.processId()));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    EXPECT_EQ(list.readAll().replace('\0', ""), QByteArray(VARNOW_PROGRAM));
    EXPECT_EQ(database.server()->logins().front().password, gCfgPassword);
    program.kill();
    program.waitForFinished(-1);
}

ON_EVERY_ENGINE(StartUpTest);

} // namespace varnow::test
