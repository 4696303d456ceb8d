#include "base/RuntimeError.h"
#include "db/codes.h"
#include "support/StorageFixture.h"

namespace varnow::test {

namespace {

struct FieldPersistence : StorageTest
{
    void addRows(const QString &values)
    {
        database.run("INSERT INTO LabLineFieldConfig (id, Configuration, Name, Line, MsgIndex, Position, "
                     "ValidationString) VALUES " +
                     values);
    }

    void expectRows(const QStringList &rows)
    {
        EXPECT_EQ(database.run("SELECT * FROM LabLineFieldConfig ORDER BY id"), rows);
    }
};

} // namespace

ON_EVERY_ENGINE(FieldPersistence);

// Faults: another order, Null taken for something else, PadChar trimmed, a row of the same key kept twice,
// columns swapped in a statement, a row found by its id in memory, a field that moved to another line taken
// for the old one, a field without a name written.
TEST_P(FieldPersistence, LoadsAndSavesEveryColumn)
{
    EXPECT_EQ(load(), 0);
    expectMessages({noFieldRows});
    addRows("(1, ' S ', ' B ', ' PID ', 1, 7, NULL), (3, 'S', 'B', 'OBX', 2, 1, '  ')");
    database.run("INSERT INTO LabLineFieldConfig VALUES (2, 'S', ' A ', 3, ' PID ', 4, 1, 6, 5, ' String ', "
                 "' look ', ' f ', ' c ', ' 12 ', 7, ' ', -1)");
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(columnOf(fields, &Field::id), (QList{2, 3}));
    const QString first = "1|S|A|3|PID|4|1|6|5|String|look|f|c|12|7| |-1";
    const QString second = "2|S|B|0|OBX|0|2|1|0|||||0|0||0";
    database.run("DELETE FROM LabLineFieldConfig");
    for (int insertThenUpdate = 0; insertThenUpdate < 2; ++insertThenUpdate) {
        database.run("UPDATE LabLineFieldConfig SET MsgIndex = 0, Position = 0, Length = 0, DataType = '', "
                     "LookupString = '', FormatString = '', Constant = '', ValidationString = '', "
                     "FixedLength = 0, PadChar = '', PadDirection = 0");
        EXPECT_EQ(save(), 0);
        expectRows({first, second});
    }

    Field moved = fields[1];
    moved.line = "NTE";
    fields.store(moved);
    fields.store(field("S", {}, 1));
    run.takeMessages();
    EXPECT_EQ(save(), 0);
    expectMessages({nothingToSave, summary(fieldsSaved, 0, 3)});
    expectRows({first, second, "3|S|B|0|NTE|0|2|1|0|||||0|0||0"});
}

// Faults: a bad row taken for a good one, or the rows before it forgotten.
TEST_P(FieldPersistence, StopsTheLoadAtABadRow)
{
    // the change of the second row, the error, the fields loaded before it: Null sorts before numbers
    const std::tuple<const char *, int, int> badRows[] = {
        {"Configuration = NULL", errors::InvalidUseOfNull, 1},
        {"Name = NULL", errors::InvalidUseOfNull, 1},
        {"Line = NULL", errors::InvalidUseOfNull, 1},
        {"MsgIndex = NULL", errors::InvalidUseOfNull, 0},
        {"Position = NULL", errors::InvalidUseOfNull, 0},
        {"ValidationString = 'abc'", errors::TypeMismatch, 1},
        {"ValidationString = '3000000000'", errors::Overflow, 1}};
    for (const auto &[change, error, loadedBefore] : badRows) {
        emptyModel();
        database.run("DELETE FROM LabLineFieldConfig");
        addRows("(1, 'S', 'A', 'PID', -1, 1, NULL), (2, 'S', 'B', 'PID', -1, 2, NULL)");
        database.run(QStringLiteral("UPDATE LabLineFieldConfig SET %1 WHERE id = 2").arg(change));
        EXPECT_EQ(load(), error) << change;
        EXPECT_EQ(fields.size(), loadedBefore) << change;
    }
    database.run("DROP TABLE LabLineFieldConfig");
    EXPECT_EQ(load(), 0);
    expectMessages({fieldsNotRetrieved(db::codes::MissingTable)});
}

} // namespace varnow::test
