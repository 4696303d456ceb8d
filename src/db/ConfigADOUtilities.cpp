#include "db/ConfigADOUtilities.h"

#include "base/numbers.h"
#include "base/text.h"
#include "startup/modGlobals.h"
#include "startup/modIsCompiled.h"
#include "util/modDiagnostics.h"
#include "util/modMsgbox.h"

namespace varnow::db {

namespace {

/// The program's executable without extension, by which the server knows its clients.
constexpr QLatin1String executableName("varnow");

QString connectString(const QString &server, const QString &database, const QString &user,
                      const QString &password)
{
    if (server.isEmpty() || database.isEmpty() || user.isEmpty())
        return {};
    return "Provider=sqloledb;server=" + trim(server) + ";uid=" + user + ";pwd=" + password +
           ";database=" + trim(database);
}

void debug(const QString &text)
{
    if (gDebugMode)
        DebugPrint(text);
}

/// Runs the body of a routine that returns a code; an error becomes its number and a diagnostic text.
template <class Body> int trapped(const QString &trapName, Body body)
{
    return guarded(body, [&](const RuntimeError &error) {
        debug(trapText(trapName, error));
        return error.number();
    });
}

template <class Object> QString state(const QString &name, const std::shared_ptr<Object> &object)
{
    return name + (object ? " is OK!" : " is nothing!");
}

Recordset execute(const Command &command)
{
    if (!command.connection)
        throw RuntimeError(errors::NoObject);
    return command.connection->execute(command.text);
}

} // namespace

QString GetConfigConnectString()
{
    return connectString(gCfgServer, gCfgDatabase, gCfgUser, gCfgPassword);
}

QString GetVelmoraConnectString()
{
    return connectString(gVelmoraServer, gVelmoraDatabase, gVelmoraUser, gVelmoraPassword);
}

int OpenComnnection(ConnectionPtr &connection, QString connectString, int, int timeout)
{
    return trapped(QStringLiteral("OpenComnnection Error Trap"), [&] {
        connection = std::make_shared<Connection>();
        connection->open(connectString + ";App=" + executableName, timeout);
        return 0;
    });
}

int GetRecordset(const ConnectionPtr &connection, CommandPtr &command, RecordsetPtr &recordset,
                 const QString &commandText, int commandType, int, int)
{
    return trapped(QStringLiteral("GetRecordset Error Trap"), [&] {
        command = std::make_shared<Command>(Command{connection, commandText, commandType});
        recordset = std::make_shared<Recordset>();
        debug(QStringList{QStringLiteral("GetRecordset - Executing command"),
                          state(QStringLiteral("cn"), connection), state(QStringLiteral("cmd"), command),
                          state(QStringLiteral("rs"), recordset)}
                  .join(lineBreak));
        *recordset = execute(*command);
        if (gDebugMode)
            DebugPrint("GetRecordset - cmd.execute returned " + QString::number(recordset->recordCount()) +
                       " rows");
        return 0;
    });
}

int ExecuteCommand(const CommandPtr &command)
{
    return guarded(
        [&] {
            if (!command)
                throw RuntimeError(errors::NoObject);
            execute(*command);
            return 0;
        },
        [](const RuntimeError &error) { return error.number(); });
}

int RetrieveRecordset(const QString &connectString, const QString &sql, RecordsetPtr &recordset)
{
    return trapped(QStringLiteral("RetrieveRecordset Error Trap"), [&] {
        ConnectionPtr connection;
        CommandPtr command;
        const int code = OpenComnnection(connection, connectString, clientCursor, connectionTimeout);
        return code != 0 ? code
                         : GetRecordset(connection, command, recordset, sql, textCommand, clientCursor,
                                        keysetCursor);
    });
}

int CompleteCommand(const QString &connectString, const QString &sql)
{
    return trapped(QStringLiteral("CompleteCommand Error Trap"), [&] {
        ConnectionPtr connection;
        const int code = OpenComnnection(connection, connectString, clientCursor, connectionTimeout);
        return code != 0 ? code
                         : ExecuteCommand(std::make_shared<Command>(Command{connection, sql, textCommand}));
    });
}

int GetNextRecordID(const QString &connectString, const QString &table, const QString &column)
{
    return guarded(
        [&] {
            RecordsetPtr recordset = std::make_shared<Recordset>();
            RetrieveRecordset(connectString, "SELECT MAX(" + column + ") FROM " + table + ";", recordset);
            const QVariant largest = recordset->value(0);
            recordset->close();
            return largest.isNull() ? 1 : toLong(toDouble(largest) + 1);
        },
        [](const RuntimeError &error) {
            if (gDebugMode) {
                const QString text = trapText(QStringLiteral("GetNextRecordID - Error Trap"), error);
                DebugPrint(text);
                if (!IsCompiled())
                    ShowMessage(text);
            }
            return -1;
        });
}

QString quoted(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', QLatin1String("''")) + u'\'';
}

} // namespace varnow::db
