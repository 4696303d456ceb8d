#include "startup/modConfigurations.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "db/ConfigADOUtilities.h"
#include "startup/modGlobals.h"
#include "ui/MessageBox.h"
#include "util/modDiagnostics.h"
#include "util/modMsgbox.h"
#include "util/modNumberTools.h"

namespace varnow {

namespace {

/// The trimmed text of a column of the current row. Null raises 94.
QString textOf(const db::Recordset &recordset, const QString &column)
{
    const QVariant &value = recordset.value(column);
    if (value.isNull())
        throw RuntimeError(errors::InvalidUseOfNull);
    return trim(value.toString());
}

void reportSubstitution(const QString &firstLine, const QString &secondLine)
{
    ShowMessage(firstLine + lineBreak + secondLine, ui::style::Information, "Configuration");
}

int readDefaultConfigName()
{
    db::RecordsetPtr recordset;
    if (db::RetrieveRecordset(db::GetConfigConnectString(),
                              "SELECT DefaultConfigName FROM Misc_upload_constants;", recordset) != 0) {
        reportSubstitution("An unexpected problem with the database prevented reading",
                           "the default configuration name, substituting 'Standard'.");
        return 0;
    }
    if (recordset->recordCount() == 0) {
        reportSubstitution("No data was returned from the database for the default ",
                           "configuration name, substituting 'Standard'.");
        return 0;
    }
    const QString name = textOf(*recordset, "DefaultConfigName");
    if (name.isEmpty())
        reportSubstitution("The default configuration name is missing,", "substituting 'Standard'.");
    else
        gDefaultConfigName = name;
    return 0;
}

int readConfigNames()
{
    db::RecordsetPtr recordset;
    if (db::RetrieveRecordset(db::GetConfigConnectString(),
                              "SELECT DISTINCT config_name FROM data_extractor_config;", recordset) != 0)
        return 0;
    if (recordset->recordCount() == 0)
        return 0;
    gConfigNames = QStringList(recordset->recordCount());
    for (int i = 0; !recordset->atEnd(); Increment(i)) {
        gConfigNames[i] = textOf(*recordset, "config_name");
        recordset->moveNext();
    }
    return 0;
}

} // namespace

int LoadConfigNames()
{
    return guarded(readConfigNames, [](const RuntimeError &error) {
        ShowMessage("An unexpected error occurred while getting the configuration names.");
        return error.number();
    });
}

int LoadDefaultConfigName()
{
    gDefaultConfigName = "Standard";
    return guarded(readDefaultConfigName, [](const RuntimeError &) {
        reportSubstitution("An unexpected error occurred while reading the database",
                           "for the default configuration name, substituting 'Standard'.");
        return 0;
    });
}

} // namespace varnow
