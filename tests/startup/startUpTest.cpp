// The start of the program, from its words or the login to the editor or the end.

#include "startup/LoginTest.h"

#include "startup/Main.h"
#include "support/printing.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace varnow::test {

namespace {

const Box catalogueFailed{"There was an unexpected error loading configuration data,\r\ncannot continue."};

Box verdict(const QString &line)
{
    return {line + "\r\nThe configuration cannot continue.", ui::style::Critical};
}

const Box canceled = verdict("The database login was canceled.");

std::vector<Box> operator+(std::vector<Box> boxes, const std::vector<Box> &more)
{
    boxes.insert(boxes.end(), more.begin(), more.end());
    return boxes;
}

} // namespace

class StartUpTest : public LoginTest
{
protected:
    int start(const QString &argumentText, std::deque<Action> actions)
    {
        return acting(std::move(actions), [&] { return startUp(argumentText); });
    }

    /// The four words of the test's database.
    QString words(const QString &password = "secret") const
    {
        return QStringList({valid.server, valid.database, valid.user, password}).join(' ');
    }

    static void leaveEditor(const Driver &user) { user.control("cmdExit")->window()->close(); }
};

// A round left out, shown twice or after a failure; the wrong last word; an exit code that hides it.
TEST_P(StartUpTest, AsksForBothDatabasesBeforeTheEditor)
{
    const auto inMode = [](int mode, const Action &action) -> Action {
        return [=](const Driver &user) {
            EXPECT_EQ(LoginState::DatabaseMode, mode);
            action(user);
        };
    };
    EXPECT_EQ(start("", {inMode(0, logIn(valid)), inMode(1, logIn(valid)), leaveEditor}), 0);
    EXPECT_EQ(messages.take(), exact + exact);
    EXPECT_EQ(gConfigNames, QStringList({"Standard", "Fixed Length"}));

    EXPECT_EQ(start(" \t", {inMode(0, cancel)}), 1);
    EXPECT_EQ(messages.take(), std::vector<Box>{canceled});

    LoginState::Canceled = false;
    EXPECT_EQ(start("", {inMode(0, logIn(valid)), inMode(1, cancel)}), 1);
    EXPECT_EQ(messages.take(), exact + std::vector<Box>{canceled});

    LoginState::Canceled = false;
    EXPECT_EQ(start("", {inMode(0, logIn({"s", "d", "", ""})), inMode(0, cancel)}), 1);
    EXPECT_EQ(messages.take(), (std::vector<Box>{{"A Username is required.", 16, "ERROR"}, canceled}));
    LoginState::Canceled = false;
}

// An older schema that stops the start; an unreadable one that does not.
TEST_P(StartUpTest, EndsOnlyWhenTheConfigurationDatabaseIsUnreadable)
{
    const QString missing = valid.server.startsWith('(') ? valid.server : QStringLiteral("127.0.0.1,1");
    const Entries nowhere{missing, valid.database + "x", "user", ""};
    database.run("UPDATE database_version SET database_version = 2");
    EXPECT_EQ(start("", {logIn(valid), logIn(nowhere), leaveEditor}), 0);
    EXPECT_EQ(messages.take(), earlier + earlier);

    EXPECT_EQ(start("", {logIn(nowhere)}), 1);
    EXPECT_EQ(messages.take(),
              unreadable(-2147467259) +
                  std::vector<Box>{verdict("There was a serious problem with the supplied data.")});
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
    EXPECT_EQ(start("", {logIn(valid), logIn(valid), leaveEditor}), 0);
    EXPECT_EQ(start("", {logIn(valid), cancel}), 1);
    ui::setMessageBoxHandler(before);
    const QStringList round{"Configuration:   success, the versions match exactly.",
                            "Reminder: for the Pentaro application."};
    EXPECT_EQ(seen, round + round + round + QStringList("Configuration: The configuration cannot continue."));
}

// A word in the wrong place, an empty password in the wrong one, a ninth word that counts.
TEST_P(StartUpTest, TakesTheValuesFromEightWords)
{
    const QString velmora = "server database \"\" \"\"";
    EXPECT_EQ(start(words("\"\"") + " \t" + velmora + " nine ten eleven", {leaveEditor}), 0);
    EXPECT_EQ(messages.take(), std::vector<Box>());
    const QStringList configuration{gCfgServer, gCfgDatabase, gCfgUser, gCfgPassword};
    EXPECT_EQ(configuration, QStringList({valid.server, valid.database, valid.user, ""}));
    const QStringList other{gVelmoraServer, gVelmoraDatabase, gVelmoraUser, gVelmoraPassword};
    EXPECT_EQ(other, QStringList({"server", "database", "\"\"", ""}));

    EXPECT_EQ(start("\"my server\" \"\" \"\"x 5 6 7 8", {leaveEditor}), 0);
    EXPECT_EQ(gCfgServer + '|' + gCfgDatabase + '|' + gCfgPassword, "\"my|server\"|\"\"x");
    EXPECT_EQ(gCfgUser, "\"\"");
    EXPECT_EQ(messages.take().front(),
              information({"An unexpected problem with the database prevented reading",
                           "the default configuration name, substituting 'Standard'."}));
}

// A start with half of the values.
TEST_P(StartUpTest, RefusesOneToSevenWords)
{
    for (int count = 1; count < 8; ++count) {
        EXPECT_EQ(start(QStringList(count, "word").join(' '), {}), 2);
        EXPECT_EQ(messages.take(),
                  (std::vector<Box>{{"The command line must hold eight words, separated by blanks:\r\n"
                                     "  configuration-server\r\n  configuration-database\r\n"
                                     "  configuration-user\r\n  configuration-password\r\n"
                                     "  velmora-server\r\n  velmora-database\r\n"
                                     "  velmora-user\r\n  velmora-password",
                                     16}}));
    }
    EXPECT_EQ(gCfgServer, "");
}

// An editor on half a catalogue.
TEST_P(StartUpTest, EndsWhenTheCatalogueCannotBeRead)
{
    database.run("INSERT INTO data_extractor_config VALUES (NULL)");
    EXPECT_EQ(start(words() + ' ' + words(), {}), 1);
    EXPECT_EQ(messages.take(),
              (std::vector<Box>{{"An unexpected error occurred while getting the configuration names."},
                                catalogueFailed}));
}

INSTANTIATE_TEST_SUITE_P(Engines, StartUpTest, everyEngine(),
                         [](const auto &engine) { return engineName(engine.param); });

} // namespace varnow::test
