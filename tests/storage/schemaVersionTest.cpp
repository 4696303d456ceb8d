#include "storage/schemaVersion.h"

#include "base/RuntimeError.h"
#include "db/codes.h"
#include "support/TestDatabase.h"

namespace varnow::test {

namespace {

using enum SchemaVersionCheck::Verdict;

struct SchemaVersionTest : testing::TestWithParam<Engine>
{
    void expectCheck(DatabaseRole role, const SchemaVersionCheck &expected)
    {
        const SchemaVersionCheck check = checkSchemaVersion(settings, role);
        EXPECT_EQ(check.verdict, expected.verdict);
        EXPECT_EQ(check.errorNumber, expected.errorNumber);
    }

    void expectOfBoth(const SchemaVersionCheck &expected)
    {
        expectCheck(DatabaseRole::Configuration, expected);
        expectCheck(DatabaseRole::Velmora, expected);
    }

    TestDatabase database{GetParam()};
    db::ConnectionSettings settings = database.settings();
};

} // namespace

ON_EVERY_ENGINE(SchemaVersionTest);

// A verdict that depends on the column's type, on text order, or on another row than the first.
TEST_P(SchemaVersionTest, IsTheFirstRowWhateverItsType)
{
    // A whole number is all that SQL Server keeps in an int column; SQLite keeps the fraction.
    const auto cut = GetParam() == Engine::Sqlite ? Exact : Earlier;
    const std::pair<SchemaVersionCheck, QStringList> cases[] = {
        {{Exact},
         {"real: (2.001, 2.008)", "real: (2.001, 2.008), (1, 1)", "float: (2.001, 2.008)",
          "text: ('2.001', '2.008')", "decimal(6, 3): (2.001, 2.008)", "nvarchar(20): ('2.001', ' 2.008 ')"}},
        {{cut}, {"int: (2.001, 2.008)"}},
        {{Newer}, {"real: (2.002, 2.009)", "int: (3, 3)", "nvarchar(20): ('10.1', '1e1')"}},
        {{Earlier},
         {"real: (2.0, 2.0)", "real: (1, 1), (2.001, 2.008)", "real: (NULL, NULL)",
          "float: (2.0009, 2.0079)"}},
        {{Earlier, errors::NoCurrentRow}, {"real: (1, 1); DELETE FROM database_version"}},
        {{Earlier, errors::TypeMismatch},
         {"nvarchar(20): ('2.0O1', '2,008')", "nvarchar(20): ('', ' ')",
          "datetime: ('2024-03-01T00:00:00', '2024-03-01T00:00:00')"}}};
    for (const auto &[check, tables] : cases) {
        for (const QString &table : tables) {
            SCOPED_TRACE(qPrintable(table));
            database.run(QString("DROP TABLE database_version;"
                                 "CREATE TABLE database_version (database_version %1, version %1);"
                                 "INSERT INTO database_version VALUES %2")
                             .arg(table.section(": ", 0, 0), table.section(": ", 1)));
            expectOfBoth(check);
        }
    }
}

// A failed query that is told as an error, a database out of reach that is not.
TEST_P(SchemaVersionTest, IsEarlierWhenItCannotBeRead)
{
    for (const char *sql : {"DROP TABLE database_version", "CREATE TABLE database_version (other real)"}) {
        database.run(sql);
        expectOfBoth({Earlier});
    }
    for (const QString server : {"(sqlite)", "127.0.0.1,x", ""}) {
        settings.server = server, settings.database = "missing.db";
        expectCheck(DatabaseRole::Configuration, {Earlier, db::codes::Failure});
        expectCheck(DatabaseRole::Velmora, {Earlier});
    }
}

} // namespace varnow::test
