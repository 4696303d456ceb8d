// Saving: every record costs two statements, all on one connection.

#include "BenchDatabase.h"
#include "bareOdbc.h"
#include "rows.h"
#include "sideBySide.h"
#include "support/TdsServer.h"

#include "storage/save.h"
#include "storage/statements.h"
#include "ui/RunWindow.h"

#include <QElapsedTimer>

namespace varnow::bench {

namespace {

constexpr Size thousandLines{2, 500, 10};
constexpr Size hundredLines{2, 50, 10};
constexpr Size twelveLines{2, 6, 10};

/// The records of a database, and what a save of them takes.
class Save
{
public:
    explicit Save(const db::ConnectionSettings &settings) : m_settings(settings)
    {
        load(settings, m_model);
        addStatements(m_model.lines);
        addStatements(m_model.fields);
    }

    double records() const { return m_model.lines.size() + m_model.fields.size(); }

    double run()
    {
        return wallSeconds([this] {
            ui::RunWindow window;
            saveAll(m_settings, m_model, window);
        });
    }

    /// The same statements on one connection, committed every quarter of a second where `groups` says so.
    double runBareOnOneConnection(bool groups) const
    {
        return wallSeconds([&] {
            BareConnection connection(odbcConnectionString(m_settings));
            QElapsedTimer sinceBegin;
            for (const std::string &statement : m_statements) {
                if (groups && !sinceBegin.isValid()) {
                    connection.run("BEGIN IMMEDIATE;");
                    sinceBegin.start();
                }
                connection.run(statement);
                if (groups && sinceBegin.elapsed() >= 250) {
                    connection.run("COMMIT;");
                    sinceBegin.invalidate();
                }
            }
            if (sinceBegin.isValid())
                connection.run("COMMIT;");
        });
    }

    /// The same statements, each on a connection and with a commit of its own.
    double runBareOneByOne() const
    {
        return wallSeconds([&] {
            for (const std::string &statement : m_statements)
                runBare(odbcConnectionString(m_settings), statement);
        });
    }

private:
    template <class Records> void addStatements(const Records &records)
    {
        for (const auto &record : records) {
            m_statements.push_back(selectId(record).toStdString());
            m_statements.push_back(updateRow(record).toStdString());
        }
    }

    const db::ConnectionSettings m_settings;
    Model m_model;
    std::vector<std::string> m_statements;
};

db::ConnectionSettings settingsOf(test::TdsServer &server)
{
    return {QStringLiteral("127.0.0.1,%1").arg(server.port()), "Configurations", "admin", "secret"};
}

void saveToFile(benchmark::State &state)
{
    const BenchDatabase database(thousandLines);
    Save save(database.settings());
    sideBySide(
        state, 1.25, [&] { return save.run(); }, [&] { return save.runBareOnOneConnection(true); });
}

/// The floor, which is no floor but what a save cost before, is measured on a tenth.
void saveToFileBesideOneByOne(benchmark::State &state)
{
    const BenchDatabase database(thousandLines);
    const BenchDatabase tenth(hundredLines);
    Save save(database.settings());
    const Save small(tenth.settings());
    sideBySide(
        state, 0.2, [&] { return save.run() / save.records(); },
        [&] { return small.runBareOneByOne() / small.records(); });
}

void saveOverWire(benchmark::State &state)
{
    const BenchDatabase database(hundredLines);
    test::TdsServer server(database.file());
    Save save(settingsOf(server));
    sideBySide(
        state, 1.25, [&] { return save.run(); }, [&] { return save.runBareOnOneConnection(false); });
}

void saveOverSlowWire(benchmark::State &state)
{
    constexpr int delay = 5; // milliseconds
    const BenchDatabase database(twelveLines);
    test::TdsServer server(database.file());
    Save save(settingsOf(server));
    server.setDelay(delay);
    const double floor = (2 * save.records() + 3) * delay / 1000;
    sideBySide(
        state, 1.15, [&] { return save.run(); }, [=] { return floor; });
}

} // namespace

void addSaveRows()
{
    addRow("save 11,000 records to a file, wall clock | bare ODBC, commits of 250 ms", "s", 5, saveToFile);
    addRow("the same, per record | each statement by itself", "s", 3, saveToFileBesideOneByOne);
    addRow("save over SQL Server's protocol, wall clock | bare ODBC", "s", 7, saveOverWire);
    addRow("the same, answers 5 ms late | (2 records + 3) x 5 ms", "s", 3, saveOverSlowWire);
}

} // namespace varnow::bench
