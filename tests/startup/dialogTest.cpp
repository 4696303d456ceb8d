// The login dialog under the hands of its user.

#include "startup/LoginTest.h"

#include "db/ConfigADOUtilities.h"
#include "support/TdsServer.h"
#include "support/printing.h"

#include <QFontMetrics>
#include <QLineEdit>

namespace varnow::test {

class DialogTest : public LoginTest
{
protected:
    static QStringList texts(const Driver &user)
    {
        return {user.text("Text1(0)"), user.text("Text1(1)"), user.text("Text1(2)"), user.text("Text1(3)")};
    }
    static QStringList globals()
    {
        return {gCfgServer,     gCfgDatabase,     gCfgUser,     gCfgPassword,
                gVelmoraServer, gVelmoraDatabase, gVelmoraUser, gVelmoraPassword};
    }
};

// A check that stops at the first blank entry, takes blanks for a name, loses what was typed, or stores it.
TEST_P(DialogTest, AsksForEveryBlankEntryAndStaysOpen)
{
    const QStringList complaints{"A Server name is required.", "A Database name is required.",
                                 "A Username is required."};
    for (unsigned filled = 0; filled < 7; ++filled) {
        const auto entry = [filled](unsigned i) {
            return (filled >> i & 1U) != 0 ? "x" : i == 1 ? "  " : "";
        };
        std::vector<Box> expected;
        for (unsigned i = 0; i < 3; ++i) {
            if (*entry(i) != 'x')
                expected.push_back({complaints[i], ui::style::Critical, "ERROR"});
        }
        const Entries entries{entry(0), entry(1), entry(2), "secret"};
        const Action stillThere = [&](const Driver &user) {
            EXPECT_EQ(texts(user), QStringList({entry(0), entry(1), entry(2), "secret"}));
            EXPECT_TRUE(LoginState::BadData);
            EXPECT_EQ(messages.take(), expected);
        };
        // Login and the close box do the same.
        EXPECT_EQ(showDialog(0, {logIn(entries), stillThere, close, stillThere, cancel}), std::vector<Box>());
        EXPECT_TRUE(LoginState::Canceled && LoginState::BadData && !LoginState::SeriousProblem);
        LoginState::Canceled = false;
    }
    EXPECT_EQ(globals().join(""), "");
}

// Values that arrive trimmed or in the other database's place; a dialog that remembers the last entries.
TEST_P(DialogTest, StoresTheEntriesAsTypedWhereTheyBelong)
{
    const Entries padded{' ' + valid.server + "  ", "  " + valid.database + ' ', " tester ", "  "};
    const QStringList typed{padded.server, padded.database, padded.user, padded.password};
    const QStringList nothing{"", "", "", ""};
    const Action isEmpty = [&](const Driver &user) { EXPECT_EQ(texts(user), nothing); };
    frmDatabaseInfo dialog;
    for (const int mode : {0, 1}) {
        LoginState::DatabaseMode = mode;
        acting({isEmpty, enter(padded), close}, [&] {
            dialog.showModal();
            return 0;
        });
        EXPECT_EQ(messages.take(), exact);
        EXPECT_EQ(globals(), typed + (mode == 0 ? nothing : typed));
        EXPECT_EQ(gConnectString, mode == 0 ? db::GetConfigConnectString() : db::GetVelmoraConnectString());
        EXPECT_EQ(dialog.surface()->findChild<QLineEdit *>("Text1(3)")->text(), "");
        if (TdsServer *server = database.server()) {
            EXPECT_EQ(server->logins().back().userName, padded.user);
            EXPECT_EQ(server->logins().back().password, padded.password);
        }
    }
}

// A password that is cut at a separator, or that changes another value of the log-in.
TEST_P(DialogTest, TakesAnyPassword)
{
    for (const QString password : {"", "a;b=c", ";database=other;", "{x}", "}{;uid=sa", "\"a\" 'b'", " x "}) {
        Entries entries = valid;
        entries.password = password;
        EXPECT_EQ(showDialog(0, {logIn(entries)}), exact) << qPrintable(password);
        EXPECT_EQ(gCfgPassword, password);
        if (TdsServer *server = database.server()) {
            EXPECT_EQ(server->logins().back().password, password);
            EXPECT_EQ(server->logins().back().userName, valid.user);
            EXPECT_EQ(server->logins().back().database, valid.database);
        }
    }
}

// A readable password, an order of entries other than on the screen, typing that adds to the old text.
TEST_P(DialogTest, WalksTheEntriesWithTabAndSelectsThem)
{
    const Action walk = [](const Driver &user) {
        const auto *password = qobject_cast<QLineEdit *>(user.control("Text1(3)"));
        EXPECT_EQ(password->displayText(), "****");
        QStringList stops;
        for (int i = 0; i < 6; ++i) {
            user.press(Qt::Key_Tab);
            stops += user.focused();
            const auto *entry = qobject_cast<QLineEdit *>(user.control(stops.last()));
            EXPECT_TRUE(entry == nullptr || entry->selectedText() == entry->text()) << i;
        }
        EXPECT_EQ(stops,
                  QStringList({"cmdLogin", "cmdCancel", "Text1(0)", "Text1(1)", "Text1(2)", "Text1(3)"}));
    };
    const Action opens = [](const Driver &user) { EXPECT_EQ(user.focused(), "Text1(0)"); };
    showDialog(0, {opens, enter({"one", "two", "three", "four"}), walk, cancel});
}

// A key that does nothing, or the other button's work; flags of the round before.
TEST_P(DialogTest, AnswersEnterAndEscapeInEveryEntry)
{
    for (const char *name : {"Text1(0)", "Text1(3)", "cmdLogin"}) {
        const auto press = [name](int key) {
            return [name, key](const Driver &user) {
                user.control(name)->setFocus();
                user.press(key);
            };
        };
        LoginState::Canceled = false;
        EXPECT_EQ(showDialog(1, {enter(valid), press(Qt::Key_Return)}), exact) << name;
        EXPECT_FALSE(LoginState::Canceled);
        EXPECT_EQ(showDialog(1, {press(Qt::Key_Enter), press(Qt::Key_Escape)}).size(), 3U) << name;
        EXPECT_TRUE(LoginState::Canceled && LoginState::BadData);
        EXPECT_EQ(showDialog(1, {enter(valid), press(Qt::Key_Escape)}), std::vector<Box>()) << name;
        EXPECT_TRUE(LoginState::Canceled && !LoginState::BadData);
    }
    LoginState::Canceled = false;
    const Action enterOnCancel = [](const Driver &user) {
        user.control("cmdCancel")->setFocus();
        user.press(Qt::Key_Return);
    };
    EXPECT_EQ(showDialog(1, {enter(valid), enterOnCancel}), std::vector<Box>());
    EXPECT_TRUE(LoginState::Canceled);
}

// The prompt of the other database, or one that the title bar cuts.
TEST_P(DialogTest, ShowsItsPromptWhole)
{
    const QString prompts[] = {"Enter configuration database information.",
                               "Enter Velmora database information."};
    for (const int mode : {0, 1}) {
        const Action look = [&](const Driver &user) {
            const QWidget *window = user.control("Text1(0)")->window();
            EXPECT_EQ(window->windowTitle(), prompts[mode]);
            QFont bold = window->font();
            bold.setBold(true);
            constexpr int buttons = 80;
            EXPECT_GT(window->width(), QFontMetrics(bold).horizontalAdvance(prompts[mode]) + buttons);
            EXPECT_EQ(window->minimumSize(), window->maximumSize());
        };
        showDialog(mode, {look, cancel});
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, DialogTest, everyEngine(),
                         [](const auto &engine) { return engineName(engine.param); });

} // namespace varnow::test
