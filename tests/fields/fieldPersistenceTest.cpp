#include "base/RuntimeError.h"
#include "fields/modLabLineFldCfgDatabase.h"
#include "lines/modLabLineCfgDatabase.h"
#include "support/StoreFixture.h"

using namespace varnow;
using namespace varnow::test;

namespace {

constexpr const char *saveTitle = "SaveAllLabLineFldsCfg Complete.";
constexpr const char *deleteTitle = "DeleteRemovedLabLineFieldsFromDatabase Complete";
const QString standard = QStringLiteral("Standard");
const QString table = QStringLiteral("LabLineFieldConfig");

class FieldPersistence : public StoreTest
{
protected:
    static int load()
    {
        auto recordset = std::make_shared<db::Recordset>();
        return GetAllLabLineFieldsConfig(recordset);
    }

    /// Adds a row with a key of its own; `values` replaces the columns that are named.
    void addRow(int id, const QString &columns, const QString &values)
    {
        database.run(QStringLiteral("INSERT INTO LabLineFieldConfig (id, %2) VALUES (%1, %3)")
                         .arg(QString::number(id), columns, values));
    }

    QString column(const char *name, int id = 1)
    {
        return database.value(QStringLiteral("SELECT %1 FROM LabLineFieldConfig WHERE id = %2")
                                  .arg(QLatin1String(name))
                                  .arg(id));
    }
};

const QString key = QStringLiteral("Configuration, Name, Line, MsgIndex, Position");

} // namespace

ON_EVERY_ENGINE(FieldPersistence);

// Faults: another order, Null taken for something else, PadChar trimmed, a row of the same key kept twice.
TEST_P(FieldPersistence, loadsEveryColumn)
{
    EXPECT_EQ(load(), 0);
    expectBoxes({QStringLiteral("No configuration data returned from database.")});
    addRow(1, key, QStringLiteral("' S ', ' B ', ' PID ', 1, 2"));
    database.run(QStringLiteral(
        "INSERT INTO LabLineFieldConfig VALUES (2, 'S', 'A', 3, 'PID', 4, 1, 1, 5, ' String ', ' look ', "
        "' f ', ' c ', ' 12 ', 1, ' ', -1)"));
    addRow(3, key + QStringLiteral(", ValidationString"), QStringLiteral("'S', 'B', 'OBX', 2, 1, '  '"));
    EXPECT_EQ(load(), 0);
    expectBoxes({});
    ASSERT_EQ(LabLineFldTable.size(), 2);
    const LabLineFldCfgRecord &full = LabLineFldTable[0];
    EXPECT_EQ((std::vector{full.id, full.NameIndex, full.LineIndex, full.MsgIndex, full.Position, full.Length,
                           full.FieldPosition, full.FixedLength, full.PadDirection}),
              (std::vector{2, 3, 4, 1, 1, 5, 12, 1, -1}));
    EXPECT_EQ((QStringList{full.DataType, full.LookupString, full.FormatString, full.Constant, full.PadChar})
                  .join(u'|'),
              QStringLiteral("String|look|f|c| "));
    const LabLineFldCfgRecord &later = LabLineFldTable[1];
    EXPECT_EQ((QStringList{later.Name, later.Line, later.PadChar}).join(u'|'), QStringLiteral("B|OBX|"));
    EXPECT_TRUE(later.id == 3 && later.NameIndex == 0 && later.FieldPosition == 0);

    database.run(QStringLiteral("DELETE FROM LabLineFieldConfig WHERE id = 2"));
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(LabLineFldTable.size(), 2) << "a reload must keep what the database no longer has";
}

// Faults: a bad row taken for a good one, or the rows before it forgotten.
TEST_P(FieldPersistence, stopsTheLoadAtABadRow)
{
    struct BadRow
    {
        const char *column;
        const char *value;
        int error;
        int loadedBefore;
    };
    for (const BadRow &bad : std::initializer_list<BadRow>{{"Configuration", "NULL", 94, 1},
                                                           {"Name", "NULL", 94, 1},
                                                           {"Line", "NULL", 94, 1},
                                                           {"MsgIndex", "NULL", 94, 0},
                                                           {"Position", "NULL", 94, 0},
                                                           {"ValidationString", "'abc'", 13, 1},
                                                           {"ValidationString", "'3000000000'", 6, 1}}) {
        emptyStores();
        database.run(QStringLiteral("DELETE FROM LabLineFieldConfig"));
        addRow(1, key, QStringLiteral("'S', 'A', 'PID', -1, 1"));
        addRow(2, key, QStringLiteral("'S', 'B', 'PID', -1, 2"));
        database.run(QStringLiteral("UPDATE LabLineFieldConfig SET %1 = %2 WHERE id = 2")
                         .arg(QLatin1String(bad.column), QLatin1String(bad.value)));
        EXPECT_EQ(load(), bad.error) << bad.column;
        EXPECT_EQ(LabLineFldTable.size(), bad.loadedBefore) << bad.column; // Null sorts before numbers
    }
    database.run(QStringLiteral("DROP TABLE LabLineFieldConfig"));
    EXPECT_EQ(load(), 0);
    expectBoxes({QStringLiteral("There was a problem retrieving the Line Field\r\n"
                                "configuration records.  Return code: -2147217865")});
}

// Faults: columns swapped in a statement, the position written as a number, a row found by its id in memory,
// a field that moved to another line taken for the old one.
TEST_P(FieldPersistence, insertsAndUpdatesByKeyAndLine)
{
    EXPECT_EQ(SaveAllLabLineFldsCfg(), 0);
    expectBoxes({QStringLiteral("No records found to process.")});
    const LabLineFldCfgRecord written{99,
                                      standard,
                                      QStringLiteral("A"),
                                      2,
                                      QStringLiteral("PID"),
                                      3,
                                      4,
                                      5,
                                      QStringLiteral("String"),
                                      QStringLiteral("look"),
                                      QStringLiteral("f"),
                                      QStringLiteral("c"),
                                      6,
                                      1,
                                      QStringLiteral(" "),
                                      -1,
                                      12};
    storeField(written);
    const QString row = QStringLiteral("1|Standard|A|2|PID|3|6|4|5|String|look|f|c|12|1| |-1");
    const QString all = QStringLiteral("SELECT * FROM LabLineFieldConfig ORDER BY id");
    EXPECT_EQ(SaveAllLabLineFldsCfg(), 0);
    EXPECT_EQ(database.rows(all), QStringList(row));
    database.run(QStringLiteral("UPDATE LabLineFieldConfig SET MsgIndex = 0, Position = 0, Length = 0, "
                                "DataType = '', LookupString = '', FormatString = '', Constant = '', "
                                "ValidationString = '', FixedLength = 0, PadChar = '', PadDirection = 0"));
    EXPECT_EQ(SaveAllLabLineFldsCfg(), 0);
    EXPECT_EQ(database.rows(all), QStringList(row));

    LabLineFldCfgRecord moved = written;
    moved.Line = QStringLiteral("OBX");
    moved.FieldPosition = 0;
    storeField(moved);
    storeField(field(standard, {}, 1));
    EXPECT_EQ(SaveAllLabLineFldsCfg(), 0);
    EXPECT_EQ(database.rows(all).size(), 2);
    EXPECT_EQ(column("Line", 2), QStringLiteral("OBX"));
    EXPECT_EQ(column("ValidationString", 2), QStringLiteral("0"));
    expectBoxes({summary(saveTitle, 0, 1), summary(saveTitle, 0, 1), summary(saveTitle, 0, 2)});
    EXPECT_EQ(LabLineFldTable[0].id + LabLineFldTable[1].id, 98) << "memory must stay";
}

// Faults: a refused row stopping the run, missing from the summary, or forgotten.
TEST_P(FieldPersistence, countsRefusedRowsAndKeepsThem)
{
    for (const QString &name : {QStringLiteral("A"), QStringLiteral("BAD"), QStringLiteral("C")})
        storeField(field(standard, name, 1));
    addRow(1, key, QStringLiteral("'Other', 'BAD', 'PID', 1, 1"));
    refuse(table, QStringLiteral("BAD"));
    EXPECT_EQ(SaveAllLabLineFldsCfg(), 0);
    expectBoxes({summary(saveTitle, 1, 2)});
    EXPECT_EQ(LabLineFldTable.size(), 3);
    EXPECT_EQ(SaveLabLineFldsCfg(standard, QStringLiteral("BAD"), 0, QStringLiteral("PID"), 0, 1, 0, {}, {},
                                 {}, {}, {}, 0, {}, 0, 1, 0),
              150079);

    RemovedLabLineFldTable.resize(3); // the one with id -1 counts, but has no row
    RemovedLabLineFldTable[0].id = -1;
    RemovedLabLineFldTable[1].id = 2;
    RemovedLabLineFldTable[2].id = 1;
    EXPECT_EQ(DeleteRemovedLabLineFieldsFromDatabase(), 0);
    EXPECT_EQ(RemovedLabLineFldTable.size(), 3U);
    accept(table);
    EXPECT_EQ(DeleteRemovedLabLineFieldsFromDatabase(), 0);
    EXPECT_EQ(DeleteRemovedLabLineFieldsFromDatabase(), 0); // nothing left: no box
    expectBoxes({summary(deleteTitle, 1, 2), summary(deleteTitle, 0, 3)});
    EXPECT_TRUE(RemovedLabLineFldTable.empty());
    EXPECT_EQ(database.rows(QStringLiteral("SELECT id FROM LabLineFieldConfig")),
              QStringList(QStringLiteral("3")));
}

// Fault: a text that ends its literal, or that comes back changed.
TEST_P(FieldPersistence, bringsEveryTextThere)
{
    int position = 0;
    for (const QString &text : hostileTexts()) {
        LabLineFldCfgRecord record = field(text, text, ++position);
        record.Line = record.LookupString = record.FormatString = record.Constant = text;
        storeField(record);
    }
    SaveAllLabLineFldsCfg();
    SaveAllLabLineFldsCfg(); // must find the rows of the first run
    const int count = static_cast<int>(hostileTexts().size());
    expectBoxes({summary(saveTitle, 0, count), summary(saveTitle, 0, count)});
    EXPECT_EQ(database.value(QStringLiteral("SELECT COUNT(*) FROM LabLineFieldConfig")).toInt(), count);
    LabLineFldTable.clear();
    ASSERT_EQ(load(), 0);
    for (QString text : hostileTexts()) {
        QString name = text;
        int start = 0;
        const int index = FindLabLineFldConfigIndexByName(text, name, 0, start, 1);
        ASSERT_GE(index, 0) << qPrintable(text.left(40));
        const LabLineFldCfgRecord &loaded = LabLineFldTable[index];
        EXPECT_TRUE(loaded.Line == text && loaded.LookupString == text && loaded.FormatString == text &&
                    loaded.Constant == text)
            << qPrintable(text.left(40));
    }
}

// Faults: a removed record left in the database because its identifier was never learnt, runs in another
// order, fields saved although the lines could not be.
TEST_P(FieldPersistence, savesBothStoresAndLearnsTheIdentifiers)
{
    storeLine(0, standard, QStringLiteral("PID"), 0, 1);
    storeField(field(standard, QStringLiteral("A"), 1));
    EXPECT_EQ(SaveAllLabLineData(), 0);
    EXPECT_EQ(LabLineTable[0].id, 0);
    EXPECT_EQ(LabLineFldTable[0].id, -1);
    AdoptLabLineDataIds();
    QString configuration = standard;
    QString name = QStringLiteral("A");
    EXPECT_EQ(RemoveLabLineFldCfgRecord(LabLineFldTable[0].id, configuration, name, 0), 0);
    EXPECT_EQ(RemoveLabLineConfigRecord(configuration, QStringLiteral("PID"), 0), 0);
    EXPECT_EQ(SaveAllLabLineData(), 0);
    const QString nothing = QStringLiteral("No records found to process.");
    expectBoxes({summary("SaveAllLabLineCfg complete", 0, 1), summary(saveTitle, 0, 1),
                 summary("DeleteRemovedLabLineConfigFromDatabase Complete", 0, 1), nothing,
                 summary(deleteTitle, 0, 1), nothing});
    EXPECT_EQ(database.value(QStringLiteral("SELECT (SELECT COUNT(*) FROM LabLineConfig) + "
                                            "(SELECT COUNT(*) FROM LabLineFieldConfig)")),
              QStringLiteral("0"));
}

TEST_P(FieldPersistence, endsTheSaveWithTheLinesWhenTheyFail)
{
    storeLine(0, standard, QStringLiteral("PID"), 0, 1);
    storeField(field(standard, QStringLiteral("A"), 1));
    QStringList prompts;
    const auto recorder = ui::setMessageBoxHandler([&](const QString &prompt, int, const QString &) {
        prompts.append(prompt);
        if (prompts.size() == 1 || prompts.size() == 3)
            throw RuntimeError(errors::Overflow);
        return ui::answer::Ok;
    });
    EXPECT_EQ(SaveAllLabLineData(), 6);
    EXPECT_EQ(SaveAllLabLineFldsCfg(), 6);
    ui::setMessageBoxHandler(recorder);
    ASSERT_EQ(prompts.size(), 4);
    EXPECT_EQ(prompts[3],
              QStringLiteral("An unexpected error occurred while saving \r\nthe Labeled Line Fields "
                             "configuration.\r\nError: 6\r\nOverflow"));
}

// Faults: fields loaded although the lines could not be, lines of an earlier load kept or doubled.
TEST_P(FieldPersistence, loadsBothStoresAgainAndAgain)
{
    database.run(
        QStringLiteral("INSERT INTO LabLineConfig (id, Configuration, Name) VALUES (1, 'S', 'PID')"));
    addRow(1, key, QStringLiteral("'S', 'A', 'PID', 1, 1"));
    EXPECT_EQ(LoadAllLabLineData(), 0);
    EXPECT_EQ(LoadAllLabLineData(), 0);
    EXPECT_EQ(LabLineTable.size(), 1);
    EXPECT_EQ(LabLineFldTable.size(), 1);
    expectBoxes({});
    emptyStores();
    database.run(QStringLiteral("DROP TABLE LabLineConfig"));
    EXPECT_EQ(LoadAllLabLineData(), -2147217865);
    EXPECT_TRUE(LabLineFldTable.isEmpty());
    expectBoxes({});
}
