#include "signin/SignInDialog.h"

#include "base/development.h"
#include "base/folders.h"
#include "base/text.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"

#include <QFile>
#include <QSettings>
#include <QStringList>

namespace varnow {

namespace {

QString prompt(DatabaseRole role)
{
    switch (role) {
    case DatabaseRole::Configuration:
        return "Enter configuration database information.";
    case DatabaseRole::Velmora:
        return "Enter Velmora database information.";
    }
    Q_UNREACHABLE();
}

void inform(const QStringList &lines, const QString &title = "Configuration")
{
    ui::show({lines.join(lineBreak), title, ui::Icon::Information});
}

QStringList verdictLines(SchemaVersionCheck::Verdict verdict)
{
    switch (verdict) {
    case SchemaVersionCheck::Verdict::Earlier:
        return {"  there is a problem, the database", "  version is earlier than",
                "  application requirements."};
    case SchemaVersionCheck::Verdict::Exact:
        return {"  success, the versions match exactly."};
    case SchemaVersionCheck::Verdict::Newer:
        return {"  success, the database version is", "  newer than the application", "  requirements."};
    }
    Q_UNREACHABLE();
}

/// What the last successful sign-in to each database began with.
class LastSignIn
{
public:
    explicit LastSignIn(DatabaseRole role) : m_file(stateFolder() + "/signIn.ini", QSettings::IniFormat)
    {
        m_file.beginGroup(role == DatabaseRole::Configuration ? "configuration" : "velmora");
    }

    /// Empty where there was none.
    db::ConnectionSettings read() const { return {text("server"), text("database"), text("user"), {}}; }

    /// Writes everything but the password, for the user alone.
    void write(const db::ConnectionSettings &settings)
    {
        m_file.setValue("server", settings.server);
        m_file.setValue("database", settings.database);
        m_file.setValue("user", settings.user);
        m_file.sync();
        QFile::setPermissions(m_file.fileName(), QFile::ReadOwner | QFile::WriteOwner);
    }

private:
    QString text(const QString &name) const { return m_file.value(name).toString(); }

    QSettings m_file;
};

/// Tells the user what the version check found. Returns whether the start can go on with this database.
bool showFindings(const SchemaVersionCheck &check, DatabaseRole role)
{
    if (check.errorNumber != 0) {
        inform({QStringLiteral("An unexpected error, number %1").arg(check.errorNumber),
                "occurred while reading the database", "version.  This may indicate a problem",
                "with the database."});
        if (role == DatabaseRole::Configuration) {
            inform({"An unexpedted error occurred while reading", "the database version.  The database could",
                    "not be located.  If it does not exist then", "it must be created before performing the",
                    "configuration.", "", "  THE UPLOAD CONFIGURATION", "          CAN NOT CONTINUE!"});
            return false;
        }
    }
    inform(QStringList("Database version checked: ") + verdictLines(check.verdict));
    inform({"This database information must", " also be in the velmora.ini for the ",
            "upload application environment.  ", "Please make sure that it is available",
            "for the Pentaro application."},
           "Reminder");
    return true;
}

} // namespace

SignInDialog::SignInDialog(DatabaseRole role)
    : ui::Window("signIn", prompt(role), 3750, 4155, Border::FixedDialog), m_role(role)
{
    m_password.setPassword(true);
    m_login.setDefault();
    m_cancel.setCancel();
    m_login.onClick = [this] { unload(); };
    m_cancel.onClick = [this] {
        m_isCanceled = true;
        unload();
    };
    setFocusOrder({&m_server, &m_database, &m_user, &m_password, &m_login, &m_cancel});
    addToolTips();
    onActivate = [this] { proposeEntries(); };
    onCloseRequest = [this] { return m_isCanceled ? ui::CloseDecision::Close : accept(); };
}

void SignInDialog::addToolTips()
{
    m_server.setToolTip(
        "The server's name or address, with a port (host,port) or an instance (host\\instance) behind it "
        "where that is needed. For a database file it is (sqlite).");
    m_database.setToolTip("The name of the database on its server, or the path of the file.");
    m_user.setToolTip("The log-in name on the server; for a file any word will do.");
    m_password.setToolTip("The password of this user; it may stay blank. It is not remembered.");
    m_login.setToolTip("Signs in and checks the version of the database.");
    m_cancel.setToolTip("Signs in nowhere and ends the program.");
}

SignIn SignInDialog::ask()
{
    showModal();
    return m_result;
}

/// Fills in what the user most likely wants to sign in to.
void SignInDialog::proposeEntries()
{
    if constexpr (isDevelopmentRun)
        return fillDevelopmentValues();
    const db::ConnectionSettings last = LastSignIn(m_role).read();
    if (last.server.isEmpty())
        return;
    m_server.setText(last.server);
    m_database.setText(last.database);
    m_user.setText(last.user);
    m_password.setFocus();
    for (TextBox *entry : {&m_server, &m_database, &m_user})
        entry->selectAll();
}

void SignInDialog::fillDevelopmentValues()
{
    m_server.setText("(sqlite)");
    m_database.setText(stateFolder() + "/demo.db"); // ./run makes it
    m_user.setText("admin");
    if (m_role == DatabaseRole::Velmora)
        m_password.setText("admin");
    m_server.selectAll(); // it has the focus already
}

/// Checks the entries and has the database's version judged.
ui::CloseDecision SignInDialog::accept()
{
    if (!isComplete())
        return ui::CloseDecision::StayOpen;
    m_result.settings = {m_server.text(), m_database.text(), m_user.text(), m_password.text()};
    m_password.setText(""); // it is kept nowhere but in the result
    const ui::Hourglass hourglass;
    const SchemaVersionCheck check = checkSchemaVersion(m_result.settings, m_role);
    m_result.outcome = showFindings(check, m_role) ? SignIn::Outcome::Accepted : SignIn::Outcome::Unreadable;
    if (check.isConnected && m_result.outcome == SignIn::Outcome::Accepted)
        LastSignIn(m_role).write(m_result.settings);
    return ui::CloseDecision::Close;
}

/// Complains about each required entry that is blank and moves the focus to the first. Returns whether none
/// is.
bool SignInDialog::isComplete()
{
    TextBox *firstMissing = nullptr;
    const auto require = [&firstMissing](TextBox &entry, const QString &problem) {
        if (!isBlank(entry.text()))
            return;
        ui::show({problem, "ERROR", ui::Icon::Critical});
        if (firstMissing == nullptr)
            firstMissing = &entry;
    };
    require(m_server, "A Server name is required.");
    require(m_database, "A Database name is required.");
    require(m_user, "A Username is required.");
    if (firstMissing != nullptr)
        firstMissing->setFocus();
    return firstMissing == nullptr;
}

} // namespace varnow
