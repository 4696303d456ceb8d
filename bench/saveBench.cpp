// Saving: every record costs two statements, each on a connection of its own.

#include "BenchDatabase.h"
#include "bareOdbc.h"
#include "rows.h"
#include "sideBySide.h"
#include "support/TdsServer.h"

#include "editor/RunWindow.h"
#include "storage/save.h"
#include "storage/statements.h"

#include <optional>

namespace varnow::bench {

namespace {

constexpr Size size{2, 10, 10};

/// The statements of a save of these records, all of which have their row.
template <class Records> void addStatements(const Records &records, std::vector<std::string> &statements)
{
    for (const auto &record : records) {
        statements.push_back(selectId(record).toStdString());
        statements.push_back(updateRow(record).toStdString());
    }
}

void saveBesideBareOdbc(benchmark::State &state, bool throughServer)
{
    const BenchDatabase database(size);
    db::ConnectionSettings settings = database.settings();
    std::optional<test::TdsServer> server;
    if (throughServer) {
        server.emplace(database.file());
        settings = {QStringLiteral("127.0.0.1,%1").arg(server->port()), "Configurations", "admin", "secret"};
    }
    Model model;
    load(settings, model);
    const double records = model.lines.size() + model.fields.size();
    const std::string connection = odbcConnectionString(settings);
    std::vector<std::string> statements;
    addStatements(model.lines, statements);
    addStatements(model.fields, statements);
    const auto save = [&] {
        RunWindow run;
        saveAll(settings, model, run);
    };
    const auto runAll = [&] {
        for (const std::string &statement : statements)
            runBare(connection, statement);
    };
    sideBySide(
        state, 1.15, [&] { return seconds(save) / records; }, [&] { return seconds(runAll) / records; });
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
