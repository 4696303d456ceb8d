// What the start reads from the databases: the schema versions, then the names of the configurations.

#include "startup/StartUpTest.h"

#include "base/RuntimeError.h"
#include "startup/modConfigurations.h"
#include "ui/Application.h"

namespace varnow::test {

// A verdict that depends on the column's type, on text order, or on another row than the first; a failed
// query that stops the start, or a run-time error that does not.
TEST_P(StartUpTest, VersionIsTheFirstRowWhateverItsType)
{
    // A whole number is all that SQL Server keeps in an int column; SQLite keeps the fraction.
    const Boxes cut = GetParam() == Engine::Sqlite ? exact : earlier;
    const std::pair<Boxes, QStringList> cases[] = {
        {exact,
         {"real: (2.001, 2.008)", "real: (2.001, 2.008), (1, 1)", "float: (2.001, 2.008)",
          "text: ('2.001', '2.008')", "decimal(6, 3): (2.001, 2.008)", "nvarchar(20): ('2.001', ' 2.008 ')"}},
        {cut, {"int: (2.001, 2.008)"}},
        {newer, {"real: (2.002, 2.009)", "int: (3, 3)", "nvarchar(20): ('10.1', '1e1')"}},
        {earlier,
         {"real: (2.0, 2.0)", "real: (1, 1), (2.001, 2.008)", "real: (NULL, NULL)",
          "float: (2.0009, 2.0079)"}},
        {errorBox(3021), {"real: (1, 1); DELETE FROM database_version"}},
        {errorBox(13),
         {"nvarchar(20): ('2.0O1', '2,008')", "nvarchar(20): ('', ' ')",
          "datetime: ('2024-03-01T00:00:00', '2024-03-01T00:00:00')"}}};
    for (const auto &[boxes, tables] : cases) {
        for (const QString &table : tables) {
            SCOPED_TRACE(qPrintable(table));
            database.run(QString("DROP TABLE database_version;"
                                 "CREATE TABLE database_version (database_version %1, version %1);"
                                 "INSERT INTO database_version VALUES %2")
                             .arg(table.section(": ", 0, 0), table.section(": ", 1)));
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

// An outcome with another outcome's message, or one that ends the start; names that are sorted, merged or
// padded; an empty or failed query that forgets the names.
TEST_P(StartUpTest, CatalogueSurvivesAllButANullName)
{
    const Boxes noQuery{information("An unexpected problem with the database prevented reading\n"
                                    "the default configuration name, substituting 'Standard'.")};
    const Boxes noRow{information("No data was returned from the database for the default \n"
                                  "configuration name, substituting 'Standard'.")};
    const Boxes blank{information("The default configuration name is missing,\nsubstituting 'Standard'.")};
    const Boxes error{information("An unexpected error occurred while reading the database\n"
                                  "for the default configuration name, substituting 'Standard'.")};
    const Boxes nullName{{"An unexpected error occurred while getting the configuration names."}};
    const auto name = LoadDefaultConfigName, all = LoadConfigNames;
    const struct
    {
        int (*load)();
        QString sql;
        QStringList names;
        Boxes boxes = {};
    } cases[] = {
        {name, "DELETE FROM Misc_upload_constants", {"Standard"}, noRow},
        {name, "INSERT INTO Misc_upload_constants VALUES ('  ')", {"Standard"}, blank},
        {name, "UPDATE Misc_upload_constants SET DefaultConfigName = ''", {"Standard"}, blank},
        {name, "UPDATE Misc_upload_constants SET DefaultConfigName = NULL", {"Standard"}, error},
        {name, "UPDATE Misc_upload_constants SET DefaultConfigName = '  Not there '", {"Not there"}},
        {name, "INSERT INTO Misc_upload_constants VALUES ('Second')", {"Not there"}},
        {name, "ALTER TABLE Misc_upload_constants RENAME DefaultConfigName TO x", {"Standard"}, noQuery},
        {name, "DROP TABLE Misc_upload_constants", {"Standard"}, noQuery},
        {all, "DELETE FROM data_extractor_config", {"before"}},
        {all, "INSERT INTO data_extractor_config VALUES ('b'), (' a '), ('b'), ('a')", {"b", "a", "a"}},
        {all, "INSERT INTO data_extractor_config VALUES (NULL)", {"b", "a", "a", ""}, nullName},
        {all, "DROP TABLE data_extractor_config", {"before"}},
    };
    gCfgServer = valid[0], gCfgDatabase = valid[1], gCfgUser = valid[2];
    for (const auto &[load, sql, names, boxes] : cases) {
        SCOPED_TRACE(qPrintable(sql));
        gConfigNames = {gDefaultConfigName = "before"};
        database.run(sql);
        EXPECT_EQ(load(), boxes == nullName ? errors::InvalidUseOfNull : 0);
        EXPECT_EQ(load == all ? gConfigNames : QStringList(gDefaultConfigName), names);
        expectBoxes(boxes);
    }
}

} // namespace varnow::test
