// The login dialog under the hands of its user.

#include "startup/StartUpTest.h"

#include "db/ConfigADOUtilities.h"

#include <QLineEdit>

namespace varnow::test {

namespace {

const QStringList allEntries{"Text1(0)", "Text1(1)", "Text1(2)", "Text1(3)"};

Action pressIn(const QString &name, int key)
{
    return [=](const Driver &user) {
        user.control(name)->setFocus();
        user.press(key);
    };
}

} // namespace

// A check that stops at the first blank entry, takes blanks for a name, loses what was typed, or stores it.
TEST_P(StartUpTest, DialogAsksForEveryBlankEntryAndStaysOpen)
{
    const QStringList complaints{"A Server name is required.", "A Database name is required.",
                                 "A Username is required."};
    for (int filled = 0; filled < 7; ++filled) {
        QStringList entries{"", "  ", "", "secret"};
        Boxes expected;
        for (int i = 0; i < 3; ++i) {
            if ((filled >> i) % 2 == 1)
                entries[i] = "x";
            else
                expected += {complaints[i], ui::style::Critical, "ERROR"};
        }
        const Action stillThere = [&](const Driver &user) {
            EXPECT_EQ(user.texts(allEntries), entries.join(u'|'));
            EXPECT_EQ(setFlags(), "B");
            expectBoxes(expected);
        };
        // Login and the close box do the same.
        expectDialog(0, {logIn(entries), stillThere, close, stillThere, cancel}, {}, "CB");
    }
    EXPECT_EQ(stored(), nothing + nothing);
}

// Values that arrive trimmed or in the other database's place; a password that is cut at a separator or
// changes another value of the log-in; a dialog that remembers the last entries.
TEST_P(StartUpTest, DialogStoresTheEntriesAsTypedWhereTheyBelong)
{
    const Action isEmpty = [](const Driver &user) { EXPECT_EQ(user.texts(allEntries), "|||"); };
    QStringList others = nothing;
    for (const QString password : {" }{;uid=sa;{\"a\" 'b'", ";database=other;", "  ", ""}) {
        const QStringList typed{' ' + valid[0] + "  ", "  " + valid[1] + ' ', " tester ", password};
        for (const int mode : {0, 1}) {
            expectDialog(mode, {isEmpty, enter(typed), close}, exact);
            EXPECT_EQ(stored(), typed + (mode == 0 ? others : typed));
            EXPECT_EQ(gConnectString,
                      mode == 0 ? db::GetConfigConnectString() : db::GetVelmoraConnectString());
        }
        EXPECT_EQ(dialog.surface()->findChild<QLineEdit *>("Text1(3)")->text(), "");
        if (TdsServer *server = database.server()) {
            const auto login = server->logins().back();
            EXPECT_EQ(QStringList({login.userName, login.password}), typed.mid(2));
        }
        others = typed;
    }
}

// A readable password, an order of entries other than on the screen, typing that adds to the old text.
TEST_P(StartUpTest, DialogWalksTheEntriesWithTabAndSelectsThem)
{
    const Action walk = [](const Driver &user) {
        EXPECT_EQ(qobject_cast<QLineEdit *>(user.control("Text1(3)"))->displayText(), "****");
        for (const QString stop : {"cmdLogin", "cmdCancel", "Text1(0)", "Text1(1)", "Text1(2)", "Text1(3)"}) {
            user.press(Qt::Key_Tab);
            EXPECT_EQ(user.focused(), stop);
            const auto *entry = qobject_cast<QLineEdit *>(user.control(stop));
            EXPECT_TRUE(entry == nullptr || entry->selectedText() == entry->text()) << qPrintable(stop);
        }
    };
    const Action opens = [](const Driver &user) { EXPECT_EQ(user.focused(), "Text1(0)"); };
    expectDialog(0, {opens, enter({"one", "two", "three", "four"}), walk, cancel}, {}, "C");
}

// A key that does nothing, or the other button's work; flags of the round before.
TEST_P(StartUpTest, DialogAnswersEnterAndEscapeInEveryEntry)
{
    for (const QString name : {"Text1(0)", "Text1(3)", "cmdLogin"}) {
        expectDialog(1, {enter(valid), pressIn(name, Qt::Key_Return)}, exact);
        const Action complains = [&](const Driver &) { EXPECT_EQ(messages.take().size(), 3); };
        expectDialog(1, {pressIn(name, Qt::Key_Enter), complains, pressIn(name, Qt::Key_Escape)}, {}, "CB");
        expectDialog(1, {enter(valid), pressIn(name, Qt::Key_Escape)}, {}, "C");
    }
    expectDialog(1, {enter(valid), pressIn("cmdCancel", Qt::Key_Return)}, {}, "C");
}

} // namespace varnow::test
