// What is unsaved outlives the program: faults in the file, in who may offer it, and in what comes back.

#include "storage/recovery.h"
#include "model/Edit.h"

#include "support/ModelFixture.h"
#include "support/errorOf.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace varnow;
using namespace varnow::test;

namespace {

const db::ConnectionSettings database{"host", "db", "user", "the password"};

/// A state folder of the test's own.
struct StateFolder
{
    StateFolder() { qputenv("XDG_STATE_HOME", folder.path().toUtf8()); }
    ~StateFolder() { qunsetenv("XDG_STATE_HOME"); }

    QTemporaryDir folder;
};

struct RecoveryTest : testing::Test, ModelFixture, StateFolder
{
    RecoveryTest() { loadRows(model); }

    static void loadRows(Model &model)
    {
        model.lines.assign({line(1, "S", "PID", 0, 1), line(2, "S", "NTE", 1, 2)});
        for (int i = 1; i <= 3; ++i)
            model.fields.load(field("S", "F" + QString::number(i), i, i));
    }

    /// Adds, changes and removes lines and fields; one record is removed and entered again.
    void edit()
    {
        lines.store(line(0, "S", hostile, 7, 3));
        lines.store(line(0, "S", "PID", 0, 9));
        fields.remove(fields.find("S", "F2", 0));
        fields.store(field("S", "New", 5));
        lines.remove(lines.find("S", "NTE", 1));
        lines.store(line(0, "S", "NTE", 1, 8));
        fields.store(field("T", hostile, 1));
    }

    QString state() const { return QDir(folder.path()).filePath("varnow"); }
    QStringList files() const { return QDir(state()).entryList({"*.json"}, QDir::Files); }

    /// The file as another program would have left it.
    QString leave(const QByteArray &contents)
    {
        QFile file(state() + "/" + files().value(0).left(17) + "left.json");
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
        return file.fileName();
    }

    QByteArray written()
    {
        QFile file(QDir(state()).filePath(files().value(0)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    const QString hostile = QString("x'\"\n\r\t\\ \u202e ü ") + QChar(0) + "<b>";
    RecoveryFile recovery{database};
};

template <class Table> QList<std::tuple<QString, int, int>> rowsOf(const Table &table)
{
    QList<std::tuple<QString, int, int>> rows;
    for (const auto &record : table)
        rows += {record.configuration + record.name, record.nameIndex, record.messageIndex};
    return rows;
}

} // namespace

// Faults: a file that others can read, that holds the password, or that stays when nothing is unsaved; one of
// a running program offered to another.
TEST_F(RecoveryTest, KeepsAFileWhileSomethingIsUnsaved)
{
    EXPECT_TRUE(recovery.write(model));
    EXPECT_EQ(files(), QStringList());
    edit();
    EXPECT_TRUE(recovery.write(model));
    ASSERT_EQ(files().size(), 1);
    EXPECT_FALSE(written().contains("the password"));
    EXPECT_EQ(QFile::permissions(state() + "/" + files()[0]) & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(LeftFile::findAll(database).empty()) << "its program runs";
    recovery.remove();
    EXPECT_EQ(files(), QStringList());
}

// Faults: a change lost, doubled or at another place; one that overwrites what the database holds by now.
TEST_F(RecoveryTest, BringsBackWhatHasNotChangedSince)
{
    edit();
    EXPECT_TRUE(recovery.write(model));
    leave(written());
    EXPECT_TRUE(LeftFile::findAll({"host", "other", "user", ""}).empty());
    std::vector<LeftFile> left = LeftFile::findAll(database);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_TRUE(LeftFile::findAll(database).empty()) << "it is offered here already";

    Model fresh;
    loadRows(fresh);
    const LeftChanges changes = left[0].read();
    EXPECT_TRUE(restore(changes, fresh).lines.empty());
    EXPECT_EQ(rowsOf(fresh.lines), rowsOf(lines));
    EXPECT_EQ(rowsOf(fresh.fields), rowsOf(fields));
    EXPECT_EQ(fresh.fields.removed().size(), 1U);
    restore(changes, fresh);
    EXPECT_EQ(rowsOf(fresh.lines), rowsOf(lines)) << "what is there already stays";

    Model changed;
    loadRows(changed);
    changed.lines.assign({line(1, "S", "PID", 0, 4)});
    const LeftChanges refused = restore(changes, changed);
    EXPECT_EQ(refused.lines.size(), 2U) << "PID was changed, NTE deleted";
    EXPECT_EQ(changed.lines[changed.lines.find("S", "PID", 0)].messageIndex, 4);
    left[0].remove();
    EXPECT_EQ(files().size(), 1) << "our own";
}

// Fault: a change that was left taken over as something else, or not to be undone.
TEST_F(RecoveryTest, TakesOverWhatWasLeft)
{
    edit();
    Model changed;
    loadRows(changed);
    changed.lines.assign({line(1, "S", "PID", 0, 4)});
    const auto left = lines.unsaved().entries();
    {
        Edit reapplied(changed);
        for (const auto &entry : left)
            reapplied.reapply(entry);
        for (const auto &entry : fields.unsaved().entries())
            reapplied.reapply(entry);
    }
    EXPECT_EQ(changed.lines[changed.lines.find("S", "PID", 0)].messageIndex, 9);
    EXPECT_EQ(changed.lines.size(), lines.size());
    EXPECT_EQ(rowsOf(changed.fields), rowsOf(fields));
}

// Fault: many changes that take too long to keep, or come back in another order.
TEST_F(RecoveryTest, KeepsAHundredThousandChanges)
{
    for (int i = 0; i < 100'000; ++i)
        fields.store(field("Big", "F" + QString::number(i), i + 1));
    EXPECT_TRUE(recovery.write(model));
    leave(written());
    std::vector<LeftFile> left = LeftFile::findAll(database);
    ASSERT_EQ(left.size(), 1U);
    Model fresh;
    loadRows(fresh);
    EXPECT_TRUE(restore(left[0].read(), fresh).isEmpty());
    EXPECT_EQ(rowsOf(fresh.fields), rowsOf(fields));
}

// Faults: a crash, or half of the changes, from a file that is not whole; such a file dropped.
TEST_F(RecoveryTest, RefusesWhatIsNotWhole)
{
    edit();
    EXPECT_TRUE(recovery.write(model));
    const QByteArray whole = written();
    const QByteArray broken[] = {"",
                                 "null",
                                 "{}",
                                 "[]",
                                 whole.left(whole.size() / 2),
                                 QByteArray(whole).replace("\"version\":1", "\"version\":2"),
                                 QByteArray(whole).replace("\"NameIndex\":0", "\"NameIndex\":1e99"),
                                 QByteArray(whole).replace("\"Name\":\"New\"", "\"Name\":7"),
                                 QByteArray(whole).replace("\"now\":{", "\"then\":{")};
    for (const QByteArray &contents : broken) {
        const QString path = leave(contents);
        std::vector<LeftFile> left = LeftFile::findAll(database);
        ASSERT_EQ(left.size(), 1U);
        EXPECT_NE(errorOf([&] { left[0].read(); }), 0) << contents.left(60).constData();
        const QString aside = left[0].putAside();
        EXPECT_TRUE(QFile::exists(aside) && !QFile::exists(path));
    }
    qputenv("XDG_STATE_HOME", "/proc/nowhere");
    EXPECT_FALSE(RecoveryFile(database).write(model));
    EXPECT_TRUE(LeftFile::findAll(database).empty());
}
