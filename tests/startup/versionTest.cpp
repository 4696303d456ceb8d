// What the login tells about the schema version of either database.

#include "startup/StartUpTest.h"

#include "ui/Application.h"

namespace varnow::test {

// A verdict that depends on the column's type, on text order, or on another row than the first; a failed
// query that stops the start, or a run-time error that does not.
TEST_P(StartUpTest, VersionIsTheFirstRowWhateverItsType)
{
    // A whole number is all that SQL Server keeps in an int column; SQLite keeps the fraction.
    const Boxes cut = GetParam() == Engine::Sqlite ? exact : earlier, noRow = errorBox(3021),
                noNumber = errorBox(13);
    const struct
    {
        Boxes boxes;
        QStringList tables; // type of the columns and their rows
    } cases[] = {
        {exact,
         {"real VALUES (2.001, 2.008)", "real VALUES (2.001, 2.008), (1, 1)", "float VALUES (2.001, 2.008)",
          "decimal(6, 3) VALUES (2.001, 2.008)", "nvarchar(20) VALUES ('2.001', ' 2.008 ')",
          "text VALUES ('2.001', '2.008')"}},
        {cut, {"int VALUES (2.001, 2.008)"}},
        {newer, {"real VALUES (2.002, 2.009)", "int VALUES (3, 3)", "nvarchar(20) VALUES ('10.1', '1e1')"}},
        {earlier,
         {"real VALUES (2.0, 2.0)", "real VALUES (1, 1), (2.001, 2.008)", "real VALUES (NULL, NULL)",
          "float VALUES (2.0009, 2.0079)"}},
        {noRow, {"real VALUES (1, 1); DELETE FROM database_version"}},
        {noNumber,
         {"nvarchar(20) VALUES ('2.0O1', '2,008')", "nvarchar(20) VALUES ('', ' ')",
          "datetime VALUES ('2024-03-01T00:00:00', '2024-03-01T00:00:00')"}}};
    for (const auto &[boxes, tables] : cases) {
        for (const QString &table : tables) {
            SCOPED_TRACE(qPrintable(table));
            const QString type = table.section(" VALUES", 0, 0);
            database.run("DROP TABLE database_version; CREATE TABLE database_version (database_version " +
                         type + ", version " + type + "); INSERT INTO database_version" +
                         table.mid(type.size()));
            const bool isError = boxes.size() == 1;
            expectDialog(0, {logIn(valid)}, isError ? boxes + unreadable : boxes, isError ? "S" : "");
            expectDialog(1, {logIn(valid)}, isError ? boxes + earlier : boxes);
        }
    }
    for (const char *sql : {"DROP TABLE database_version", "CREATE TABLE database_version (other real)"}) {
        database.run(sql);
        for (const int mode : {0, 1})
            expectDialog(mode, {logIn(valid)}, earlier);
    }
}

// A database that cannot be opened and whose error is lost, shown twice, or stops the second round.
TEST_P(StartUpTest, VersionOfADatabaseThatCannotBeOpened)
{
    if (TdsServer *server = database.server())
        server->failLogins({.number = 18456});
    for (const QString &server : QStringList{valid[0], "127.0.0.1,1", "no-such-host.invalid"}) {
        const Action tryIt = logIn({server, valid[1] + "x", "user", ""});
        expectDialog(0, {tryIt}, errorBox(-2147467259) + unreadable, "S");
        expectDialog(1, {tryIt}, earlier);
    }
}

// A check that leaves the hourglass behind or never shows it.
TEST_P(StartUpTest, VersionCheckShowsTheHourglass)
{
    QList<int> pointers;
    const auto before = ui::setMessageBoxHandler([&](const QString &, int, const QString &) {
        pointers += ui::screenPointer();
        return ui::answer::Ok;
    });
    expectDialog(0, {logIn(valid)}, {});
    ui::setMessageBoxHandler(before);
    EXPECT_EQ(pointers + QList<int>{ui::screenPointer()}, QList<int>({11, 11, 0}));
}

} // namespace varnow::test
