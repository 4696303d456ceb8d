#include "startup/frmDatabaseInfo.h"

#include "base/text.h"
#include "startup/modDatabaseConfig.h"
#include "startup/modGlobals.h"
#include "startup/modIsCompiled.h"
#include "ui/MessageBox.h"
#include "util/modMouse.h"
#include "util/modMsgbox.h"
#include "util/modTextBoxTools.h"

namespace varnow {

namespace {

QString prompt(int databaseMode)
{
    return databaseMode == 0 ? "Enter configuration database information."
                             : "Enter Velmora database information.";
}

/// Tells the user what the version check found. Returns whether the version could be read.
bool showVerdict(int verdict)
{
    const auto show = [](const QStringList &lines, const QString &title) {
        ShowMessage(lines.join(lineBreak), ui::style::Information, title);
    };
    QStringList lines{"Database version checked: "};
    switch (verdict) {
    case 0:
        lines << "  success, the versions match exactly.";
        break;
    case -1:
        lines << "  there is a problem, the database"
              << "  version is earlier than"
              << "  application requirements.";
        break;
    case 1:
        lines << "  success, the database version is"
              << "  newer than the application"
              << "  requirements.";
        break;
    default:
        show({"An unexpedted error occurred while reading", "the database version.  The database could",
              "not be located.  If it does not exist then", "it must be created before performing the",
              "configuration.", "", "  THE UPLOAD CONFIGURATION", "          CAN NOT CONTINUE!"},
             "Configuration");
        return false;
    }
    show(lines, "Configuration");
    show({"This database information must", " also be in the velmora.ini for the ",
          "upload application environment.  ", "Please make sure that it is available",
          "for the Pentaro application."},
         "Reminder");
    return true;
}

} // namespace

frmDatabaseInfo::frmDatabaseInfo()
    : ui::Window("frmDatabaseInfo", "Configuration", 3750, 4155, Border::FixedDialog)
{
    const std::array<const ui::Label *, 4> captions{&Label1[0], &Label1[2], &Label1[1], &Label1[3]};
    for (std::size_t i = 0; i < Text1.size(); ++i) {
        ui::TextBox &box = Text1[i];
        box.setAccessibleName(captions[i]->caption());
        box.onGotFocus = [&box] { SelectAllText(box); };
    }
    Text1[3].setPassword(true);
    cmdLogin.setDefault();
    cmdCancel.setCancel();
    cmdLogin.onClick = [this] { leave(false); };
    cmdCancel.onClick = [this] { leave(true); };
    setFocusOrder({&Text1[0], &Text1[1], &Text1[2], &Text1[3], &cmdLogin, &cmdCancel});
    onLoad = [this] { loadWindow(); };
    onActivate = [this] { fillDevelopmentValues(); };
    onQueryUnload = [this](bool &cancel) { queryUnload(cancel); };
}

void frmDatabaseInfo::loadWindow()
{
    for (ui::TextBox &box : Text1)
        box.setText("");
    BadData = false;
    SeriousProblem = false;
    setCaption(prompt(DatabaseMode));
}

void frmDatabaseInfo::fillDevelopmentValues()
{
    if (IsCompiled())
        return;
    Text1[0].setText("(sqlite)");
    Text1[1].setText("build/standard.db");
    Text1[2].setText("admin");
    if (DatabaseMode == 1)
        Text1[3].setText("admin");
    SelectAllText(Text1[0]); // it has the focus first, maybe before these texts
}

void frmDatabaseInfo::leave(bool canceled)
{
    Canceled = canceled;
    unload();
}

void frmDatabaseInfo::queryUnload(bool &cancel)
{
    if (!Canceled)
        cancel = AcceptLogin();
    if (!cancel)
        Text1[3].setText(""); // the password is kept nowhere but in the global state
}

/// Checks and stores the entries and has the database's version judged. Returns whether the dialog stays.
bool frmDatabaseInfo::AcceptLogin()
{
    BadData = false;
    SeriousProblem = false;
    requireEntry(0, "A Server name is required.");
    requireEntry(1, "A Database name is required.");
    requireEntry(2, "A Username is required.");
    if (BadData)
        return true;
    storeEntries();
    SetMousePointer(11);
    if (!showVerdict(CheckDatabaseVersion()))
        SeriousProblem = true;
    SetMousePointer(0);
    return false;
}

void frmDatabaseInfo::requireEntry(std::size_t entry, const QString &complaint)
{
    if (!isBlank(Text1[entry].text()))
        return;
    ShowMessage(complaint, ui::style::Critical, "ERROR");
    BadData = true;
}

void frmDatabaseInfo::storeEntries()
{
    const bool isConfiguration = DatabaseMode == 0;
    (isConfiguration ? gCfgServer : gVelmoraServer) = Text1[0].text();
    (isConfiguration ? gCfgDatabase : gVelmoraDatabase) = Text1[1].text();
    (isConfiguration ? gCfgUser : gVelmoraUser) = Text1[2].text();
    (isConfiguration ? gCfgPassword : gVelmoraPassword) = Text1[3].text();
}

} // namespace varnow
