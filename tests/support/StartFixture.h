#pragma once

#include "support/Driver.h"
#include "support/MessageLog.h"
#include "support/TestDatabase.h"

#include <QTimer>
#include <QWidget>

#include <functional>

namespace varnow::test {

/// What the user does in a window; the actions happen one by one, each in the window then in front.
using Action = std::function<void(const Driver &user)>;
using Actions = QList<Action>;

inline const QStringList nothing{"", "", "", ""};

/// What stands in the sign-in dialog for these settings: server, database, user, password.
inline QStringList entriesOf(const db::ConnectionSettings &settings)
{
    return {settings.server, settings.database, settings.user, settings.password};
}

/// A start, or the sign-in alone, on either engine. The database holds the sample rows; the program knows no
/// connection settings yet.
struct StartFixture : testing::TestWithParam<Engine>
{
    /// Runs a body whose windows end with these actions, and expects these boxes from it.
    void expectBoxesOf(const std::function<void()> &body, Actions actions, const Boxes &boxes)
    {
        QTimer timer;
        timer.setSingleShot(true); // an action may wait, and the next one must not begin meanwhile
        timer.callOnTimeout([&] {
            if (ui::Window::loadedWindows().empty())
                return;
            const Driver user(*ui::Window::loadedWindows().back());
            if (actions.empty()) {
                ADD_FAILURE() << "A window stays open.";
                user.press(Qt::Key_Escape); // what Cancel does
                return ui::Window::unloadAll();
            }
            actions.takeFirst()(user);
            timer.start(actions.empty() ? 500 : 0); // the last window may take a moment to go
        });
        timer.start();
        body();
        EXPECT_TRUE(actions.empty()) << "A window that the test expects was not shown.";
        expectBoxes(boxes);
    }

    /// The boxes shown since they were looked at last.
    void expectBoxes(const Boxes &expected) { EXPECT_EQ(messages.take(), expected); }

    static Action enter(const QStringList &entries)
    {
        return [=](const Driver &user) {
            user.fill({{"server", entries[0]},
                       {"database", entries[1]},
                       {"user", entries[2]},
                       {"password", entries[3]}});
        };
    }
    static Action logIn(const QStringList &entries)
    {
        return [=](const Driver &user) {
            enter(entries)(user);
            user.click("login");
        };
    }
    static void cancel(const Driver &user) { user.click("cancel"); }
    static void close(const Driver &) { ui::Window::loadedWindows().back()->surface()->window()->close(); }

    MessageLog messages;
    TestDatabase database{GetParam(), true};
    const QStringList valid = entriesOf(database.settings());
};

/// A box of several lines.
inline Box note(QString text, const QString &title = "Configuration")
{
    return information(text.replace("\n", "\r\n"), title);
}

/// The boxes of a version that could be read.
inline Boxes verdict(const QString &text)
{
    return {note("Database version checked: \n" + text),
            note("This database information must\n also be in the velmora.ini for the \n"
                 "upload application environment.  \nPlease make sure that it is available\n"
                 "for the Pentaro application.",
                 "Reminder")};
}

inline const Boxes exact = verdict("  success, the versions match exactly.");
inline const Boxes earlier =
    verdict("  there is a problem, the database\n  version is earlier than\n  application requirements.");

inline Boxes errorBox(int number)
{
    return {note(QStringLiteral("An unexpected error, number %1\noccurred while reading the database\n"
                                "version.  This may indicate a problem\nwith the database.")
                     .arg(number))};
}

inline const Boxes unreadable{
    note("An unexpedted error occurred while reading\nthe database version.  The database could\n"
         "not be located.  If it does not exist then\nit must be created before performing the\n"
         "configuration.\n\n  THE UPLOAD CONFIGURATION\n          CAN NOT CONTINUE!")};

} // namespace varnow::test
