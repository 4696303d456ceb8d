#include "editor/frmLinesConfig.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "db/ConfigADOUtilities.h"
#include "fields/modLabLineFldCfgDatabase.h"
#include "startup/modGlobals.h"
#include "ui/MessageBox.h"
#include "util/modDiagnostics.h"
#include "util/modListTools.h"
#include "util/modMouse.h"
#include "util/modMsgbox.h"
#include "util/modNumberTools.h"

#include <limits>

namespace varnow {

void frmLinesConfig::switchConfiguration()
{
    SetMousePointer(11);
    if (!isBlank(cboConfig.text())) {
        mCurrentLineIndex = 0;
        RebuildTree();
        DisplayCurrentLine();
        LoadComboBoxes();
    }
    SetMousePointer(0);
}

void frmLinesConfig::selectDefaultConfiguration()
{
    if (!IsInList(cboConfig, gDefaultConfigName))
        return;
    const int index = FindListIndex(cboConfig, gDefaultConfigName, false);
    if (index >= 0)
        cboConfig.setText(cboConfig.itemText(index));
}

void frmLinesConfig::showFirstNode()
{
    if (tvLines.nodeCount() > 0)
        tvLines.ensureVisible(0);
}

void frmLinesConfig::LoadComboBoxes()
{
    LoadLineChoices();
    LoadDataFieldList();
}

void frmLinesConfig::LoadLineChoices()
{
    const auto fill = [this] {
        Combo2[0].clear();
        const QString configuration = trim(cboConfig.text());
        for (const LabLineConfigRecord &line : LabLineTable) {
            if (trim(line.Configuration) != configuration)
                continue;
            QString item = trim(line.Name);
            if (line.NameIndex > 0)
                item += QStringLiteral("(%1)").arg(line.NameIndex);
            Combo2[0].setItemData(Combo2[0].addItem(item), line.MsgIndex);
        }
        return 0;
    };
    guarded(fill, [](const RuntimeError &error) { return error.number(); });
}

void frmLinesConfig::LoadDataFieldList()
{
    const auto fill = [this] {
        db::ConnectionPtr connection;
        db::RecordsetPtr recordset;
        if (openDataFields(connection, recordset))
            listDataFields(*recordset);
        return 0;
    };
    const auto report = [](const RuntimeError &error) {
        ShowMessage(QStringList{"An unexpected error occurred while retrieving the",
                                "Data Fields configuration.  Some or all of the",
                                "Data Fields may be missing from the list.",
                                QStringLiteral("Error code: %1").arg(error.number()), error.description()}
                        .join(lineBreak),
                    ui::style::Critical, "Configuration");
        return error.number();
    };
    guarded(fill, report);
}

/// Runs the query for the data field names. A failure is shown, and false returned.
bool frmLinesConfig::openDataFields(db::ConnectionPtr &connection, db::RecordsetPtr &recordset)
{
    const auto report = [](const QString &whatFailed, int code) {
        ShowMessage(QStringList{"Could not load Data Fields.", whatFailed,
                                QStringLiteral("Return code: %1").arg(code)}
                        .join(lineBreak),
                    ui::style::Critical, "Configuration");
        return false;
    };
    gConnectString = "Provider=sqloledb;server=" + trim(gCfgServer) + ";uid=" + trim(gCfgUser) +
                     ";pwd=" + trim(gCfgPassword) + ";database=" + trim(gCfgDatabase);
    if (const int code =
            db::OpenComnnection(connection, gConnectString, db::clientCursor, db::connectionTimeout))
        return report("Could not open the connection to the database.", code);

    const QString query = "SELECT config_name, field_name "
                          "FROM data_extractor_fields_config "
                          "WHERE LTRIM(RTRIM(config_name)) = " +
                          db::quoted(cboConfig.text()) + " ORDER BY field_name;";
    db::CommandPtr command;
    if (const int code = db::GetRecordset(connection, command, recordset, query, db::textCommand,
                                          db::clientCursor, db::keysetCursor))
        return report("Could not open recordset.", code);
    return true;
}

void frmLinesConfig::listDataFields(db::Recordset &recordset)
{
    Combo2[1].clear();
    const int rows = recordset.recordCount();
    const int configuration = recordset.column("config_name");
    const int fieldName = recordset.column("field_name");
    for (qint16 row = 0; row < rows; Increment(row)) {
        if (trim(recordset.value(configuration).toString()) == cboConfig.text())
            Combo2[1].addItem(trim(recordset.value(fieldName).toString()));
        recordset.moveNext();
        if (row == std::numeric_limits<qint16>::max())
            throw RuntimeError(errors::Overflow);
    }
}

void frmLinesConfig::takeOverMessageIndex()
{
    QString line = trim(Combo2[0].text());
    int index = FindListIndex(Combo2[0], line, false);
    if (index == -1 && line.endsWith(u')') && line.contains(u'(')) {
        line.truncate(line.indexOf(u'('));
        index = FindListIndex(Combo2[0], line, false);
    }
    if (index >= 0)
        Text2[2].setText(QString::number(Combo2[0].itemData(index)));
}

/// Reads both stores from the database. A failure is shown, `warning` being the end of its message.
void frmLinesConfig::loadStores(const QStringList &warning)
{
    const int result = LoadAllLabLineData();
    mChangesMade = false;
    if (result != 0)
        ShowMessage((QStringList{"An unexpected error occurred while reading the",
                                 "current Line and Line Fields configuration.",
                                 "No current information is available and, if you"} +
                     warning)
                        .join(lineBreak));
}

void frmLinesConfig::refresh()
{
    SetMousePointer(11);
    cboConfig.setText("");
    selectDefaultConfiguration();
    showFirstNode();
    SetMousePointer(0);
}

void frmLinesConfig::reload()
{
    SetMousePointer(11);
    bool cancel = false;
    PromptSaveChanges(cancel);
    if (cancel) {
        SetMousePointer(0);
        return;
    }
    ClearLineEntry();
    ResetFieldEntry();
    loadStores({"'Save' this configuration, any current information", "will be lost."});
    refresh();
    tsLines.setCurrentPage(LinesPage);
    mChangesMade = false;
    SetMousePointer(0);
}

void frmLinesConfig::save()
{
    SetMousePointer(11);
    const int result = SaveAllLabLineData();
    if (result == 0)
        mChangesMade = false;
    if (result == 0 || result == errors::UserInterrupt)
        AdoptLabLineDataIds();
    SetMousePointer(0);
}

void frmLinesConfig::PromptSaveChanges(bool &Cancel)
{
    if (!mChangesMade)
        return;
    QString prompt = QStringList{"Changes have been made to the configuration.",
                                 "Any changes will be lost if you continue without saving.",
                                 "Do you want to save changes now?"}
                         .join(lineBreak);
    switch (AskYesNoCancel(prompt, "Save Changes")) {
    case ui::answer::Yes:
        save();
        break;
    case ui::answer::Cancel:
        Cancel = true;
        break;
    default:
        break;
    }
}

} // namespace varnow
