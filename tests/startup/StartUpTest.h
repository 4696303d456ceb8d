#pragma once

#include "support/Driver.h"
#include "support/StoreFixture.h"
#include "support/TdsServer.h"

#include "startup/Main.h"
#include "startup/frmDatabaseInfo.h"
#include "util/modForms.h"

#include <QTimer>
#include <QWidget>

namespace varnow::test {

/// What the user does in a window; the actions happen one by one, each in the window then in front.
using Action = std::function<void(const Driver &user)>;
using Actions = QList<Action>;

inline const QStringList nothing{"", "", "", ""};

/// A test of the start on either engine. The database holds the sample rows; the program knows no connection
/// value yet. Connection values are lists: server, database, user, password.
struct StartUpTest : StoreTest
{
    StartUpTest() : StoreTest(true), valid(stored().mid(0, 4))
    {
        for (QString *value : connectionValues())
            value->clear();
    }

    /// Starts the program with these words behind its name.
    void expectStart(const QString &words, const Actions &actions, int exitCode, const Boxes &boxes)
    {
        acting(actions, [&] { EXPECT_EQ(startUp(words), exitCode); });
        expectBoxes(boxes);
    }

    /// Shows the dialog alone; `flags` are the initials of the state that it must leave.
    void expectDialog(int mode, const Actions &actions, const Boxes &boxes, const QString &flags = "")
    {
        LoginState::DatabaseMode = mode;
        acting(actions, [this] { dialog.showModal(); });
        expectBoxes(boxes);
        EXPECT_EQ(setFlags(), flags);
    }

    static QString setFlags()
    {
        return QString(LoginState::Canceled ? "C" : "") + (LoginState::BadData ? "B" : "") +
               (LoginState::SeriousProblem ? "S" : "");
    }

    /// The eight connection values as the program holds them.
    static QStringList stored()
    {
        QStringList values;
        for (const QString *value : connectionValues())
            values += *value;
        return values;
    }

    static Action enter(const QStringList &entries)
    {
        return [=](const Driver &user) {
            for (int i = 0; i < 4; ++i)
                user.type(QStringLiteral("Text1(%1)").arg(i), entries[i]);
        };
    }
    static Action logIn(const QStringList &entries)
    {
        return [=](const Driver &user) {
            enter(entries)(user);
            user.click("cmdLogin");
        };
    }
    static void cancel(const Driver &user) { user.click("cmdCancel"); }
    static void close(const Driver &) { ui::Window::loadedWindows().back()->surface()->window()->close(); }

    frmDatabaseInfo dialog;
    const QStringList valid;

private:
    static void acting(Actions actions, const std::function<void()> &body)
    {
        LoginState::Canceled = false;
        QTimer timer;
        timer.setSingleShot(true); // an action may wait, and the next one must not begin meanwhile
        timer.callOnTimeout([&] {
            if (ui::Window::loadedWindows().empty())
                return;
            if (actions.empty()) {
                ADD_FAILURE() << "A window stays open.";
                LoginState::Canceled = true;
                return UnloadAllForms();
            }
            actions.takeFirst()(Driver(*ui::Window::loadedWindows().back()));
            timer.start();
        });
        timer.start();
        body();
        EXPECT_TRUE(actions.empty()) << "A window that the test expects was not shown.";
    }
};

inline Box information(QString text, const QString &title = "Configuration")
{
    return {text.replace("\n", "\r\n"), ui::style::Information, title};
}

/// The boxes of a version that could be read.
inline Boxes verdict(const QString &text)
{
    return {information("Database version checked: \n" + text),
            information("This database information must\n also be in the velmora.ini for the \n"
                        "upload application environment.  \nPlease make sure that it is available\n"
                        "for the Pentaro application.",
                        "Reminder")};
}

inline const Boxes exact = verdict("  success, the versions match exactly.");
inline const Boxes earlier =
    verdict("  there is a problem, the database\n  version is earlier than\n  application requirements.");
inline const Boxes newer =
    verdict("  success, the database version is\n  newer than the application\n  requirements.");

inline Boxes errorBox(int number)
{
    return {information(QStringLiteral("An unexpected error, number %1\noccurred while reading the database\n"
                                       "version.  This may indicate a problem\nwith the database.")
                            .arg(number))};
}

inline const Boxes unreadable{
    information("An unexpedted error occurred while reading\nthe database version.  The database could\n"
                "not be located.  If it does not exist then\nit must be created before performing the\n"
                "configuration.\n\n  THE UPLOAD CONFIGURATION\n          CAN NOT CONTINUE!")};

} // namespace varnow::test
