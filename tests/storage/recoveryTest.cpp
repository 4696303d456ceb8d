// What is unsaved outlives the program: faults in the file, in who may offer it, and in what comes back.

#include "storage/recovery.h"
#include "model/Edit.h"
#include "storage/LeftFile.h"
#include "storage/RecoveryJournal.h"

#include "support/RecoveryFixture.h"
#include "support/errorOf.h"

using namespace varnow;
using namespace varnow::test;

namespace {

struct RecoveryTest : RecoveryFixture
{
    QByteArray written() { return contentsOf(onlyFile()); }

    bool write()
    {
        journal.rewrite(model);
        return journal.flush();
    }

    RecoveryJournal journal{database};
};

} // namespace

// Faults: a file that others can read, that holds the password, or that stays when nothing is unsaved; one of
// a running program offered to another.
TEST_F(RecoveryTest, KeepsAFileWhileSomethingIsUnsaved)
{
    EXPECT_TRUE(write());
    EXPECT_EQ(files(), QStringList());
    edit();
    EXPECT_TRUE(write());
    ASSERT_EQ(files().size(), 1);
    EXPECT_FALSE(written().contains("the password"));
    EXPECT_EQ(QFile::permissions(onlyFile()) & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(LeftFile::findAll(database).empty()) << "its program runs";
    journal.drop();
    EXPECT_TRUE(journal.flush());
    EXPECT_EQ(files(), QStringList());
}

// Faults: a change lost, doubled or at another place; one that overwrites what the database holds by now.
TEST_F(RecoveryTest, BringsBackWhatHasNotChangedSince)
{
    edit();
    EXPECT_TRUE(write());
    leave(written(), "left.journal");
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
TEST_F(RecoveryTest, KeepsThirtyThousandChanges)
{
    for (int i = 0; i < 30'000; ++i)
        fields.store(field("Big", "F" + QString::number(i), i + 1));
    EXPECT_TRUE(write());
    leave(written(), "left.journal");
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
    QDir().mkpath(state());
    const QByteArray whole =
        R"({"version":1,"server":"host","database":"db","time":"2026-01-02T03:04:05.006Z",)"
        R"("lines":[],"fields":[{"before":null,"now":{"id":-1,"Configuration":"S",)"
        R"("Name":"New","NameIndex":0,"Position":5},"addedAnew":false}]})";
    const QByteArray broken[] = {"",
                                 "null",
                                 "{}",
                                 "[]",
                                 whole.left(whole.size() / 2),
                                 QByteArray(whole).replace("\"version\":1", "\"version\":2"),
                                 QByteArray(whole).replace("\"NameIndex\":0", "\"NameIndex\":1e99"),
                                 QByteArray(whole).replace("\"Name\":\"New\"", "\"Name\":7"),
                                 QByteArray(whole).replace("\"Position\"", "\"Newer\""),
                                 QByteArray(whole).replace("\"now\":{", "\"then\":{")};
    for (const char *ending : {"left.json", "left.journal"}) {
        for (const QByteArray &contents : broken) {
            const QString path = leave(contents, ending);
            std::vector<LeftFile> left = LeftFile::findAll(database);
            ASSERT_EQ(left.size(), 1U);
            EXPECT_NE(errorOf([&] { left[0].read(); }), 0) << contents.left(60).constData();
            EXPECT_TRUE(left[0].putAside());
            EXPECT_TRUE(QFile::exists(left[0].asidePath()) && !QFile::exists(path));
        }
    }
    leave(whole, "left.json");
    const LeftChanges changes = LeftFile::findAll(database).at(0).read();
    ASSERT_EQ(changes.fields.size(), 1U) << "what an earlier version wrote is read";
    EXPECT_EQ(changes.fields[0].now->position, 5);
    EXPECT_EQ(changes.time.time(), QTime(3, 4, 5, 6));

    qputenv("XDG_STATE_HOME", "/proc/nowhere");
    edit();
    RecoveryJournal refused(database);
    refused.rewrite(model);
    EXPECT_FALSE(refused.flush());
    EXPECT_TRUE(LeftFile::findAll(database).empty());
}
