#pragma once

#include "support/Driver.h"
#include "support/MessageLog.h"
#include "support/TestDatabase.h"

#include "startup/frmDatabaseInfo.h"
#include "startup/modGlobals.h"
#include "util/modForms.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>
#include <utility>
#include <vector>

namespace varnow::test {

/// What a user types into the login dialog.
struct Entries
{
    QString server, database, user, password;
};

/// A test of windows that the program shows by itself, one after the other, on either engine.
/// The database holds the sample rows; no connection value is known to the program yet.
class LoginTest : public testing::TestWithParam<Engine>
{
protected:
    using Action = std::function<void(const Driver &user)>;

    LoginTest() : valid{gCfgServer, gCfgDatabase, gCfgUser, gCfgPassword}
    {
        for (QString *value : {&gCfgServer, &gCfgDatabase, &gCfgUser, &gCfgPassword, &gVelmoraServer,
                               &gVelmoraDatabase, &gVelmoraUser, &gVelmoraPassword})
            value->clear();
        gMsgTitle = "Configuration";
        gConfigNames.clear();
        LoginState::DatabaseMode = 0;
        LoginState::BadData = LoginState::SeriousProblem = LoginState::Canceled = false;
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { act(); });
    }

    /// Runs `body`, which shows windows; each action of the user happens in the window then in front.
    template <class Body> auto acting(std::deque<Action> actions, Body body)
    {
        pending = std::move(actions);
        timer.start();
        auto result = body();
        timer.stop();
        EXPECT_TRUE(pending.empty()) << "A window that the test expects was not shown.";
        return result;
    }

    /// Shows the dialog alone and returns the boxes that came.
    std::vector<Box> showDialog(int mode, std::deque<Action> actions)
    {
        LoginState::DatabaseMode = mode;
        return acting(std::move(actions), [this] {
            frmDatabaseInfo().showModal();
            return messages.take();
        });
    }

    static Action enter(const Entries &entries)
    {
        return [=](const Driver &user) {
            user.type("Text1(0)", entries.server);
            user.type("Text1(1)", entries.database);
            user.type("Text1(2)", entries.user);
            user.type("Text1(3)", entries.password);
        };
    }

    static Action logIn(const Entries &entries)
    {
        return [=](const Driver &user) {
            enter(entries)(user);
            user.click("cmdLogin");
        };
    }

    static void cancel(const Driver &user) { user.click("cmdCancel"); }
    static void close(const Driver &user) { user.control("Text1(0)")->window()->close(); }

    MessageLog messages;
    TestDatabase database{GetParam(), true};
    const Entries valid;

private:
    void act()
    {
        if (ui::Window::loadedWindows().empty())
            return;
        if (pending.empty()) {
            ADD_FAILURE() << "A window stays open.";
            LoginState::Canceled = true;
            UnloadAllForms();
            return;
        }
        const Action action = std::move(pending.front());
        pending.pop_front();
        action(Driver(*ui::Window::loadedWindows().back()));
        timer.start();
    }

    QTimer timer;
    std::deque<Action> pending;
};

inline Box information(const QStringList &lines, const QString &title = "Configuration")
{
    return {lines.join("\r\n"), ui::style::Information, title};
}

inline const Box reminder =
    information({"This database information must", " also be in the velmora.ini for the ",
                 "upload application environment.  ", "Please make sure that it is available",
                 "for the Pentaro application."},
                "Reminder");
inline const std::vector<Box> exact{
    information({"Database version checked: ", "  success, the versions match exactly."}), reminder};
inline const std::vector<Box> earlier{
    information({"Database version checked: ", "  there is a problem, the database",
                 "  version is earlier than", "  application requirements."}),
    reminder};
inline const std::vector<Box> newer{
    information({"Database version checked: ", "  success, the database version is",
                 "  newer than the application", "  requirements."}),
    reminder};

inline Box errorBox(int number)
{
    return information({QStringLiteral("An unexpected error, number %1").arg(number),
                        "occurred while reading the database", "version.  This may indicate a problem",
                        "with the database."});
}

/// The boxes of a configuration database whose version cannot be read.
inline std::vector<Box> unreadable(int number)
{
    return {errorBox(number),
            information(
                {"An unexpedted error occurred while reading", "the database version.  The database could",
                 "not be located.  If it does not exist then", "it must be created before performing the",
                 "configuration.", "", "  THE UPLOAD CONFIGURATION", "          CAN NOT CONTINUE!"})};
}

} // namespace varnow::test
