// Faults to catch: a row that hides behind another one and is not found, a fix that deletes the row to keep
// or cannot be undone, a collation that is not the column's.

#include "storage/rowIssues.h"

#include "support/StorageFixture.h"

namespace varnow::test {

namespace {

struct RowIssuesTest : StorageTest
{
    std::vector<RowIssue> find()
    {
        varnow::Run reading(settings, run);
        return findRowIssues(reading, model);
    }

    QStringList found()
    {
        QStringList texts;
        for (const RowIssue &found : find())
            texts += (found.issue.fix == Fix::RemoveAtNextSave ? "" : "no fix: ") +
                     withoutIsolation(found.issue.text);
        return texts;
    }

    QStringList ids(const QString &table) { return database.run("SELECT id FROM " + table + " ORDER BY id"); }

    void removeAll()
    {
        for (const RowIssue &found : find()) {
            if (found.issue.fix == Fix::RemoveAtNextSave)
                edit([&](Edit &edit) { removeAtNextSave(edit.model(), found); });
        }
        EXPECT_TRUE(model.hasRowsToDelete()) << "else leaving would lose the fix without a question";
    }
};

} // namespace

ON_EVERY_ENGINE(RowIssuesTest);

TEST_P(RowIssuesTest, RemovesAtTheNextSaveWhatHidesBehindARecord)
{
    database.run("INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex) VALUES "
                 "(1, 'S', 'PID', 0, 1), (2, 'S', ' PID', 0, 2), (3, 'S', 'OBX', NULL, 3)");
    database.run(
        "INSERT INTO LabLineFieldConfig (id, Configuration, Name, NameIndex, Line, LineIndex, MsgIndex, "
        "Position) VALUES (1, 'S', 'a', 0, 'PID', 0, 1, 1), (2, 'S', 'a', 0, 'PID', 0, 1, 2), "
        "(3, 'S', 'b', 2, 'OBX', 0, 1, 3), (4, 'S', 'b', 2, 'PID', 0, 1, 4), "
        "(5, 'S', 'c', 0, 'PID', 0, 1, 5), (6, 'S', 'c', NULL, 'PID', 0, 1, 6)");
    ASSERT_EQ(load(), 0);
    const QString leftBehind = " A save leaves it behind.";
    const QString onlyOne = " A save writes only one of them.";
    const QString unfound = " A save does not find it and writes another row.";
    const QStringList expected{
        "Row 2 has the key of line PID as row 1 has." + onlyOne,
        "no fix: Row 3 of line OBX has no name index or line index." + unfound,
        "Row 1 has the key of field a as row 2 has." + onlyOne,
        "Row 3 keeps field b(2) under line OBX, while it stands under line PID here." + leftBehind,
        "Row 6 has the key of field c as row 5 has." + onlyOne,
    };
    EXPECT_EQ(found(), expected);
    removeAll();
    EXPECT_EQ(found(), expected.mid(1, 1));
    while (history.undoable())
        history.undo(model);
    EXPECT_EQ(found(), expected);
    while (history.redoable())
        history.redo(model);
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(ids("LabLineConfig"), QStringList({"1", "3", "4"})); // the new one has a name index
    EXPECT_EQ(ids("LabLineFieldConfig"), QStringList({"2", "4", "5"}));
    EXPECT_FALSE(model.hasUnsavedChanges());

    while (history.undoable())
        history.undo(model);
    while (history.redoable())
        history.redo(model);
    EXPECT_TRUE(fields.removed().empty()); // another row may have such an identifier by now
}

TEST_P(RowIssuesTest, AsksHowTheColumnsTellLetterCase)
{
    varnow::Run asking(settings, run);
    EXPECT_TRUE(tellsLetterCaseApart(asking));
    database.run("DROP TABLE LabLineFieldConfig");
    database.run("CREATE TABLE LabLineFieldConfig (Name nvarchar(200) COLLATE NOCASE)");
    EXPECT_FALSE(tellsLetterCaseApart(asking));
}

} // namespace varnow::test
