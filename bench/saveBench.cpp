// Saving: every record costs two statements, each on a connection of its own.

#include "BenchDatabase.h"
#include "bareOdbc.h"
#include "rows.h"
#include "sideBySide.h"
#include "support/TdsServer.h"

#include "fields/modLabLineFldCfg.h"
#include "fields/modLabLineFldCfgDatabase.h"
#include "lines/modLabLineCfg.h"
#include "startup/modGlobals.h"

#include <optional>

namespace varnow::bench {

namespace {

constexpr Size size{2, 10, 10};

/// The statements of a save of all records in memory, all of which have their row.
std::vector<std::string> saveStatements()
{
    std::vector<std::string> statements;
    const auto add = [&](const QString &statement) { statements.push_back(statement.toStdString()); };
    for (const LabLineConfigRecord &line : LabLineTable) {
        add(QStringLiteral("SELECT id FROM LabLineConfig WHERE Configuration = '%1' AND Name = '%2' AND "
                           "NameIndex = %3;")
                .arg(line.Configuration, line.Name)
                .arg(line.NameIndex));
        add(QStringLiteral("UPDATE LabLineConfig SET Configuration = '%1', Name = '%2', NameIndex = %3, "
                           "MsgIndex = %4 WHERE id = %5;")
                .arg(line.Configuration, line.Name)
                .arg(line.NameIndex)
                .arg(line.MsgIndex)
                .arg(line.id));
    }
    for (const LabLineFldCfgRecord &field : LabLineFldTable) {
        add(QStringLiteral("SELECT id FROM LabLineFieldConfig WHERE Configuration = '%1' AND Name = '%2' AND "
                           "NameIndex = %3 AND Line = '%4' AND LineIndex = %5;")
                .arg(field.Configuration, field.Name)
                .arg(field.NameIndex)
                .arg(field.Line)
                .arg(field.LineIndex));
        add(QStringLiteral("UPDATE LabLineFieldConfig SET Configuration = '%1', Name = '%2', NameIndex = %3, "
                           "Line = '%4', LineIndex = %5, Position = %6, MsgIndex = %7, Length = %8, "
                           "DataType = '%9', LookupString = '%10', FormatString = '%11', Constant = '%12', "
                           "ValidationString = '%13', FixedLength = %14, PadChar = '%15', "
                           "PadDirection = %16 WHERE id = %17;")
                .arg(field.Configuration, field.Name)
                .arg(field.NameIndex)
                .arg(field.Line)
                .arg(field.LineIndex)
                .arg(field.Position)
                .arg(field.MsgIndex)
                .arg(field.Length)
                .arg(field.DataType, field.LookupString, field.FormatString, field.Constant)
                .arg(field.FieldPosition)
                .arg(field.FixedLength)
                .arg(field.PadChar)
                .arg(field.PadDirection)
                .arg(field.id));
    }
    return statements;
}

void saveBesideBareOdbc(benchmark::State &state, bool throughServer)
{
    const BenchDatabase database(size);
    std::optional<test::TdsServer> server;
    if (throughServer) {
        server.emplace(database.file());
        gCfgServer = QStringLiteral("127.0.0.1,%1").arg(server->port());
        gCfgDatabase = QStringLiteral("Configurations");
        gCfgPassword = QStringLiteral("secret");
    }
    LoadAllLabLineData();
    const double records = LabLineTable.size() + LabLineFldTable.size();
    const std::string connection = odbcConnectionString();
    const std::vector<std::string> statements = saveStatements();
    const auto runAll = [&] {
        for (const std::string &statement : statements)
            runBare(connection, statement);
    };
    sideBySide(
        state, 1.15, [&] { return seconds([] { SaveAllLabLineData(); }) / records; },
        [&] { return seconds(runAll) / records; });
}

} // namespace

void addSaveRows()
{
    addRow("save, per record, SQLite | bare ODBC", "s", 7,
           [](benchmark::State &state) { saveBesideBareOdbc(state, false); });
    addRow("save, per record, SQL Server's protocol | bare ODBC", "s", 7,
           [](benchmark::State &state) { saveBesideBareOdbc(state, true); });
}

} // namespace varnow::bench
