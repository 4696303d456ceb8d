#include "support/FullDisk.h"
#include "support/ModelFixture.h"

#include "exchange/ImportPlan.h"
#include "exchange/exportCsv.h"
#include "exchange/files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace varnow::test {

namespace {

struct ImportTest : ModelFixture, testing::Test
{
    ImportPlan plan(const QByteArray &contents) const
    {
        return planImport({{"a.csv", contents}}, model, "LAB");
    }

    /// What becomes of each row, with the reasons.
    QStringList outcomes(const QByteArray &contents) const
    {
        const QStringList words{"added", "changed", "unchanged", "refused"};
        QStringList told;
        for (const FileRow &row : plan(contents).rows)
            told += QString::number(row.number) + ' ' + words[static_cast<int>(row.outcome)] +
                    (row.problems.isEmpty() ? "" : ": " + row.problems.join('|'));
        return told;
    }
};

const QByteArray fieldHeader("Name,Line,Position,Constant\n");

} // namespace

TEST_F(ImportTest, MakesEqualRecordsOfHostileTexts)
{
    storeLine(7, "LAB", "a;\"b\"\r\nc,\td", 2, 3);
    storeLine(8, "LAB", QString::fromUtf8("שורה\u202E %1"), 0, 4);
    const char *const texts[] = {
        "=1+1",  "\"",           "a\nb",      "\r",   ",",    ";",   "\t'x",
        "-5",    "007",          "\xC2\xA0x", "%1%2", "<b>&", "1e5", "\xEF\xBB\xBFmark",
        "𝄞 é ©", "\x01\x1F\x7F", "TRUE"};
    for (int i = 0; const char *const text : texts) {
        Field made = field("LAB", QString::fromUtf8(text) + QString::number(i + 1), i + 1);
        ++i;
        made.lookup = made.format = made.constant = made.line = QString::fromUtf8(text);
        made.lineIndex = -i;
        made.dataType = "Date";
        made.padCharacter = i % 2 == 0 ? " " : "";
        made.fixedLength = i % 3;
        made.characterPosition = made.length = 2147483647 - i;
        fields.store(made);
    }
    Model other;
    apply(planImport({{"a.csv", exportCsv(model, "LAB")}}, other, "OTHER"), other);
    const auto expectEqual = [](const auto &expected, const auto &actual) {
        ASSERT_EQ(actual.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i)
            EXPECT_TRUE(sameContent(expected[i], actual[i])) << i;
    };
    expectEqual(lines, other.lines);
    expectEqual(fields, other.fields);
    EXPECT_EQ(planImport({{"a.csv", exportCsv(other, "LAB")}}, other, "").count(RowOutcome::Unchanged), 19);
}

TEST_F(ImportTest, TellsWhatIsWrongWithAFile)
{
    const QByteArray header("Record,Name,MsgIndex\n");
    const std::pair<QByteArray, const char *> cases[] = {
        {"", "The file is empty."},
        {"\xEF\xBB\xBF\r\n\n", "The file is empty."},
        {QByteArray("\x7F"
                    "ELF\0\0",
                    6),
         "holds binary zeros"},
        {header, "There are no rows below its first one."},
        {"PID,0,1\n", "does not name the columns"},
        {"Name,MsgIndex, name\na,1,b\n", "The column name stands in its first row twice."},
        {header + "Line,PID,1\nLine,\"OBR,2\nLine,OBX,3\n", "never closed. It opens in row 3."},
        {header + "Line,5\" tube,1\n", "In row 2 a quotation mark stands inside of a cell."},
        {header + QByteArray(101, ','), "Row 2 has more than 100 cells."},
        {header + QByteArray("\n,").repeated(200'001), "more than 200000 rows"},
    };
    for (const auto &[contents, expected] : cases) {
        const ImportPlan made = plan(contents);
        EXPECT_TRUE(made.rows.empty());
        EXPECT_TRUE(made.problems.join('|').contains(expected))
            << expected << " / " << made.problems.join('|').toStdString();
    }
}

TEST_F(ImportTest, RefusesBadRowsByTheChecksOfThePages)
{
    const QByteArray table = "Record,Name,NameIndex,Line,MsgIndex,Position,Constant,FixedLength,Length\n"
                             "Line,,x,,,,,,\n"
                             "Line,PID,,,1,,,,\n"
                             "line, PID ,0,,2,,,,\n"
                             "Field,A,0,PID,,1,c,0,,surplus\n"
                             "Field,B,0,PID,,2147483648,,,\n"
                             "Field,C,,,,1,c,1,\n"
                             "Field,D,,PID,,1,c,,99999999999\n"
                             "Segment,E,,,1,,,,\n"
                             ",,,,,,,,\n"
                             "Field,F,,PID\n";
    const QString neither = "Both the Lookup String and the Constant value are empty,\r\n\t\tyou must supply "
                            "one or the other.";
    EXPECT_EQ(outcomes(table),
              QStringList({"2 refused: The Line name is empty.|The Line Index must be numeric.|The Message "
                           "Index is empty.",
                           "3 added", "4 refused: The same line stands in row 3 of a.csv already.",
                           "5 refused: The row has 10 cells, but there are 9 columns.",
                           "6 refused: " + neither + "|The Position Field nust be a number.",
                           "7 refused: The Line Name and Index field is empty.|A Fixed Length was indicated, "
                           "however, the length and position were not specified.",
                           "8 refused: The column Length must hold a number of at most ten digits.",
                           "9 refused: The column Record must say Line or Field.",
                           "11 refused: " + neither + "|The Position Field is empty."}));
    // A page takes what such a text begins with; a file would lose the rest.
    EXPECT_EQ(outcomes("Name,NameIndex,Line,LineIndex,MsgIndex,Position,Constant,FixedLength,Length\n"
                       "G,,PID,,3x,1,c,,\nH,3x,PID,y,4,1,c,,\nI,,PID,,5,1,c,x,1x\n"),
              QStringList({"2 refused: The column MsgIndex must hold a number of at most ten digits.",
                           "3 refused: The Field Name Index must be numeric.|The Line Name Index is invalid.",
                           "4 refused: The column Length must hold a number of at most ten digits.|The "
                           "column FixedLength must hold a number of at most ten digits."}));
    const ImportPlan made = plan(table);
    EXPECT_EQ(plan(refusedRows(made)).count(RowOutcome::Refused), 6); // the double one is good by itself,
    EXPECT_EQ(plan(refusedRows(made)).count(RowOutcome::Added), 2);   // what was surplus is gone
}

TEST_F(ImportTest, ComparesWithTheModelAndFindsTheLinesOfItsOwn)
{
    storeLine(5, "LAB", "PID", 0, 9);
    Field stored = field("LAB", "Sex", 8);
    stored.messageIndex = 9;
    stored.dataType = "String";
    stored.constant = "F";
    fields.store(stored);
    const QByteArray table =
        "Kind of thing;CONSTANT;name;Line;Position;MsgIndex\n"
        "x;M;Sex;PID;8;\n"
        "x;\"Gr\xF6\xDF"
        "e \x80\x81\x92\";Size;OBX;1;\n" // Windows-1252, with a byte that means nothing there
        "x;F;Sex2;PID;8;4\n";
    EXPECT_EQ(outcomes(table), QStringList({"2 changed", "3 added", "4 added"}));
    const ImportPlan made =
        planImport({{"fields.csv", table}, {"lines.csv", "Name\tMsgIndex\nOBX\t12\nPID\t9"}}, model, "LAB");
    EXPECT_EQ(made.count(RowOutcome::Unchanged), 1);
    EXPECT_EQ(made.notes,
              QStringList({"fields.csv: These columns are not known and are ignored: Kind of thing.",
                           "fields.csv: The file is not UTF-8 and was read as Windows-1252."}));
    apply(made, model);
    EXPECT_EQ(columnOf(fields, &Field::messageIndex), QList<int>({4, 9, 12}));
    EXPECT_EQ(fields[fields.find("LAB", "Size", 0)].constant, QString::fromUtf8("Größe €\u0081’"));

    const QByteArray elsewhere = "Configuration,Name,MsgIndex\nNEW,PID,1\n,OBX,12\n";
    EXPECT_EQ(outcomes(elsewhere), QStringList({"2 added", "3 unchanged"}));
    EXPECT_EQ(
        planImport({{"a.csv", elsewhere}}, model, "LAB", ImportTarget::Current).count(RowOutcome::Changed),
        1);
    EXPECT_EQ(planImport({{"a.csv", elsewhere}}, model, " ").rows.back().problems,
              QStringList("There is no configuration for it."));
}

// Faults: fields left under another line than theirs, a row left behind without a word, fields at one place
// that change their order.
TEST_F(ImportTest, TakesFieldsAlongWithTheirLines)
{
    storeLine(1, "LAB", "A", 0, 1);
    storeLine(2, "LAB", "B", 0, 2);
    const auto fieldOf = [this](const QString &line, int messageIndex, const QString &name, int id) {
        Field made = field("LAB", name, 1);
        made.id = id;
        made.line = line;
        made.messageIndex = messageIndex;
        made.constant = "x";
        fields.store(made);
    };
    fieldOf("B", 2, "follows", 11);
    fieldOf("B", 2, "stays", 12);
    fieldOf("B", 2, "leaves", 13);
    const ImportPlan made = plan("Record,Name,MsgIndex,Line,Position,Constant\n"
                                 "Line,NEW,2,,,\nLine,B,3,,,\n"
                                 "Field,stays,2,B,1,x\nField,leaves,,A,1,x\n"
                                 "Field,first,,NEW,1,x\nField,second,,NEW,1,x\n");
    EXPECT_EQ(
        made.notes,
        QStringList({"1 field not in the files will get the new message index of the line it belongs to.",
                     "1 field will move to another line. The row under the old line stays in the "
                     "database, where Check finds it after the next save."}));
    apply(made, model);
    QStringList places;
    for (const Field &stored : fields)
        places += stored.name + QString::number(stored.messageIndex);
    EXPECT_EQ(places.join(' '), "stays2 leaves1 first2 second2 follows3");
}

TEST_F(ImportTest, TakesARealisticMessage)
{
    const FileContents file = readFile(DATA_FOLDER "/laboratory-results.csv");
    ASSERT_EQ(file.problem, "");
    const ImportPlan made = plan(file.bytes);
    EXPECT_EQ(made.problems + made.notes, QStringList());
    EXPECT_EQ(made.count(RowOutcome::Added), static_cast<int>(made.rows.size()));
    apply(made, model);
    EXPECT_GE(lines.size(), 25);
    EXPECT_GE(fields.size(), 300);
    for (const Field &field : fields)
        EXPECT_GT(field.messageIndex, 0) << field.name.toStdString();
}

TEST_F(ImportTest, LeavesTheOldFileWhereItCannotWrite)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("old.csv");
    ASSERT_EQ(writeFile(path, "old"), "");
    EXPECT_TRUE(writeFile(folder.path(), "new").startsWith("The file " + folder.path()));
    EXPECT_TRUE(writeFile("/dev/full/x", "new").contains("could not be written"));
    QString problem;
    {
        const FileSizeLimit fullDisk(10);
        problem = writeFile(path, "what a full disk refuses");
    }
    EXPECT_TRUE(problem.contains("could not be written")) << "an empty file would take its place";
    EXPECT_EQ(readFile(path).bytes, "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("old.csv"));
    EXPECT_TRUE(readFile(folder.path()).problem.contains("It is a folder."));
    ASSERT_TRUE(QFile::resize(path, 100'000'000));
    EXPECT_TRUE(readFile(path).problem.contains("It is larger than 32 MB."));
}

} // namespace varnow::test
