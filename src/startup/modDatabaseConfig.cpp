#include "startup/modDatabaseConfig.h"

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "db/ConfigADOUtilities.h"
#include "startup/loginState.h"
#include "startup/modGlobals.h"
#include "ui/MessageBox.h"
#include "util/modDiagnostics.h"
#include "util/modMsgbox.h"

namespace varnow {

namespace {

constexpr int serverNotReached = -2147467259;

/// Where a database keeps its schema version, and the version that this build requires.
struct VersionSource
{
    QString connectString;
    QString query;
    QString column;
    float required;
};

VersionSource versionSource(int mode)
{
    if (mode == 0)
        return {db::GetConfigConnectString(), "SELECT database_version FROM database_version;",
                "database_version", 2.001F};
    return {db::GetVelmoraConnectString(), "SELECT version FROM database_version;", "version", 2.008F};
}

/// The version as the required ones are held, in single precision, so that 2.001 equals 2.001 whatever the
/// type of its column.
int compareVersion(const QVariant &stored, float required)
{
    if (stored.isNull())
        return -1;
    const auto version = static_cast<float>(toDouble(stored));
    return version < required ? -1 : version > required ? 1 : version == required ? 0 : -1;
}

int readAndCompareVersion(int mode, int &errorNumber)
{
    const VersionSource source = versionSource(mode);
    gConnectString = source.connectString;
    db::ConnectionPtr connection;
    if (const int code =
            db::OpenComnnection(connection, gConnectString, db::clientCursor, db::connectionTimeout)) {
        if (mode == 0 && code == serverNotReached)
            errorNumber = code;
        return -1;
    }
    db::CommandPtr command;
    db::RecordsetPtr recordset;
    if (db::GetRecordset(connection, command, recordset, source.query, db::textCommand, db::clientCursor,
                         db::keysetCursor) != 0)
        return -1;
    return compareVersion(recordset->value(source.column), source.required);
}

} // namespace

int CompareDatabaseVersion(int mode, int &errorNumber)
{
    return guarded([&] { return readAndCompareVersion(mode, errorNumber); },
                   [&](const RuntimeError &error) {
                       errorNumber = error.number();
                       return -1;
                   });
}

int CheckDatabaseVersion()
{
    const int mode = LoginState::DatabaseMode;
    int errorNumber = 0;
    const int verdict = CompareDatabaseVersion(mode, errorNumber);
    if (errorNumber == 0)
        return verdict;
    ShowMessage(QStringList{QStringLiteral("An unexpected error, number %1").arg(errorNumber),
                            "occurred while reading the database", "version.  This may indicate a problem",
                            "with the database."}
                    .join(lineBreak),
                ui::style::Information, "Configuration");
    return mode == 0 ? errorNumber : verdict;
}

} // namespace varnow
