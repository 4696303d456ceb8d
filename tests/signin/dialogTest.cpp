// The sign-in dialog under the hands of its user.

#include "support/StartFixture.h"
#include "support/TdsServer.h"

#include "base/RuntimeError.h"
#include "base/folders.h"
#include "db/codes.h"
#include "signin/SignInDialog.h"
#include "ui/Application.h"

#include <QFile>
#include <QLineEdit>

#include <optional>

namespace varnow::test {

namespace {

using enum SignIn::Outcome;

const QStringList allEntries{"server", "database", "user", "password"};
constexpr DatabaseRole bothRoles[] = {DatabaseRole::Configuration, DatabaseRole::Velmora};

Action pressIn(const QString &name, int key)
{
    return [=](const Driver &user) {
        user.control(name)->setFocus();
        user.press(key);
    };
}

struct SignInTest : StartFixture
{
    SignInTest() { forget(); }

    /// No dialog has been used before.
    static void forget() { QFile::remove(remembered()); }

    static QString remembered() { return stateFolder() + "/signIn.ini"; }

    /// Shows the dialog alone. Returns the settings that come of it.
    QStringList expectOutcome(SignIn::Outcome outcome, DatabaseRole role, const Actions &actions,
                              const Boxes &boxes = {})
    {
        SignIn result;
        dialog.emplace(role);
        expectBoxesOf([&] { result = dialog->ask(); }, actions, boxes);
        EXPECT_EQ(result.outcome, outcome);
        return entriesOf(result.settings);
    }

    std::optional<SignInDialog> dialog; ///< the last one, closed
};

} // namespace

// A check that stops at the first blank entry, takes blanks for a name, loses what was typed, returns it, or
// leaves the user at an entry that is not missing.
TEST_P(SignInTest, AsksForEveryBlankEntryAndStaysOpen)
{
    const QStringList problems{"A Server name is required.", "A Database name is required.",
                               "A Username is required."};
    for (int filled = 0; filled < 7; ++filled) {
        QStringList entries{"", "  ", "", "secret"};
        Boxes expected;
        QString firstMissing;
        for (int i = 2; i >= 0; --i) {
            if ((filled >> i) % 2 == 1) {
                entries[i] = "x";
            } else {
                expected.prepend(critical(problems[i], "ERROR"));
                firstMissing = allEntries[i];
            }
        }
        const Action stillThere = [&](const Driver &user) {
            EXPECT_EQ(user.texts(allEntries), entries.join(u'|'));
            EXPECT_EQ(user.focused(), firstMissing);
            expectBoxes(expected);
        };
        // Login and the close box do the same.
        const Actions actions{logIn(entries), stillThere, close, stillThere, cancel};
        EXPECT_EQ(expectOutcome(Canceled, DatabaseRole::Configuration, actions), nothing);
    }
}

// Values that arrive trimmed; a password that is cut at a separator, changes another value of the log-in, or
// stays in its entry.
TEST_P(SignInTest, ReturnsTheEntriesAsTyped)
{
    const Action isEmpty = [](const Driver &user) { EXPECT_EQ(user.texts(allEntries), "|||"); };
    for (const QString password : {" }{;uid=sa;{\"a\" 'b'", ";database=other;", "  ", ""}) {
        const QStringList typed{' ' + valid[0] + "  ", "  " + valid[1] + ' ', " tester ", password};
        forget();
        for (const DatabaseRole role : bothRoles)
            EXPECT_EQ(expectOutcome(Accepted, role, {isEmpty, enter(typed), close}, exact), typed);
        EXPECT_EQ(dialog->surface()->findChild<QLineEdit *>("password")->text(), "");
        if (TdsServer *server = database.server()) {
            const auto login = server->logins().back();
            EXPECT_EQ(QStringList({login.userName, login.password}), typed.mid(2));
        }
    }
}

// A readable password, an order of entries other than on the screen, typing that adds to the old text.
TEST_P(SignInTest, WalksTheEntriesWithTabAndSelectsThem)
{
    const Action walk = [](const Driver &user) {
        EXPECT_EQ(qobject_cast<QLineEdit *>(user.control("password"))->displayText(), "****");
        for (const QString stop : {"login", "cancel", "server", "database", "user", "password"}) {
            user.press(Qt::Key_Tab);
            EXPECT_EQ(user.focused(), stop);
            const auto *entry = qobject_cast<QLineEdit *>(user.control(stop));
            EXPECT_TRUE(entry == nullptr || entry->selectedText() == entry->text()) << qPrintable(stop);
        }
    };
    const Action opens = [](const Driver &user) { EXPECT_EQ(user.focused(), "server"); };
    expectOutcome(Canceled, DatabaseRole::Configuration,
                  {opens, enter({"one", "two", "three", "four"}), walk, cancel});
}

// A key that does nothing, or the other button's work.
TEST_P(SignInTest, AnswersEnterAndEscapeInEveryEntry)
{
    const DatabaseRole role = DatabaseRole::Velmora;
    for (const QString name : {"server", "password", "login"}) {
        expectOutcome(Accepted, role, {enter(valid), pressIn(name, Qt::Key_Return)}, exact);
        forget();
        const Action complains = [&](const Driver &) { EXPECT_EQ(messages.take().size(), 3); };
        expectOutcome(Canceled, role,
                      {pressIn(name, Qt::Key_Enter), complains, pressIn(name, Qt::Key_Escape)});
        expectOutcome(Canceled, role, {enter(valid), pressIn(name, Qt::Key_Escape)});
    }
    expectOutcome(Canceled, role, {enter(valid), pressIn("cancel", Qt::Key_Return)});
}

// A password on the disk, the other dialog's entries, those of a sign-in that failed, a text that the file
// changes, an entry to be cleared before typing.
TEST_P(SignInTest, RemembersTheLastThatSucceeded)
{
    using enum DatabaseRole;
    const QString hostile = " t;e\"s\\t=, @x ";
    const auto proposes = [](const QStringList &entries) {
        return [=](const Driver &user) {
            EXPECT_EQ(user.texts(allEntries), entries.join(u'|'));
            EXPECT_EQ(user.focused(), entries.first().isEmpty() ? "server" : "password");
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(qobject_cast<QLineEdit *>(user.control(allEntries[i]))->selectedText(), entries[i]);
            EXPECT_EQ(unexplained(*user.control("server")->window()), QStringList());
        };
    };
    const QStringList first{valid[0], valid[1], hostile, ""};
    expectOutcome(Accepted, Configuration,
                  {proposes(nothing), logIn({valid[0], valid[1], hostile, "s3cret"})}, exact);
    expectOutcome(Canceled, Configuration, {proposes(first), enter({"a", "b", "c", ""}), cancel});
    const QStringList nowhere{GetParam() == Engine::Sqlite ? valid[0] : "127.0.0.1,1", valid[1] + "x", "u",
                              ""};
    expectOutcome(Unreadable, Configuration, {proposes(first), logIn(nowhere)},
                  errorBox(db::codes::Failure) + unreadable);
    expectOutcome(Accepted, Velmora, {proposes(nothing), logIn(nowhere)}, earlier); // reached or not
    expectOutcome(Accepted, Velmora, {proposes(nothing), logIn(valid)}, exact);
    expectOutcome(Canceled, Velmora, {proposes(valid.mid(0, 3) + QStringList("")), cancel});
    expectOutcome(Canceled, Configuration, {proposes(first), cancel});
    QFile file(remembered());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readAll().contains("s3cret"));
    EXPECT_FALSE(file.permissions() & (QFile::ReadGroup | QFile::ReadOther));
}

// A verdict with another one's message; a missing version that stops the start for want of the main
// application's database, or does not for want of the own.
TEST_P(SignInTest, TellsWhatTheVersionCheckFound)
{
    const Boxes newer =
        verdict("  success, the database version is\n  newer than the application\n  requirements.");
    const auto expectBoth = [&](const char *sql, const Boxes &boxes) {
        database.run(sql);
        for (const DatabaseRole role : bothRoles)
            expectOutcome(Accepted, role, {logIn(valid)}, boxes);
    };
    expectBoth("UPDATE database_version SET database_version = 3, version = 3", newer);
    expectBoth("UPDATE database_version SET database_version = 2, version = 2", earlier);
    database.run("DELETE FROM database_version");
    const Boxes missing = errorBox(errors::NoCurrentRow);
    expectOutcome(Unreadable, DatabaseRole::Configuration, {logIn(valid)}, missing + unreadable);
    expectOutcome(Accepted, DatabaseRole::Velmora, {logIn(valid)}, missing + earlier);
    expectBoth("DROP TABLE database_version", earlier);
}

// A check that leaves the hourglass behind or never shows it.
TEST_P(SignInTest, ShowsTheHourglassDuringTheVersionCheck)
{
    QList<bool> shown;
    const auto before = ui::setMessageBoxHandler([&](const Box &) {
        shown += ui::Hourglass::isShown();
        return ui::Answer::Ok;
    });
    expectOutcome(Accepted, DatabaseRole::Configuration, {logIn(valid)});
    ui::setMessageBoxHandler(before);
    EXPECT_EQ(shown + QList<bool>{ui::Hourglass::isShown()}, QList<bool>({true, true, false}));
}

ON_EVERY_ENGINE(SignInTest);

} // namespace varnow::test
