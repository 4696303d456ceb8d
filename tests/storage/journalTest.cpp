// The journal of what is unsaved: what a disk, a kill or another version can do to it.

#include "storage/LeftFile.h"
#include "storage/RecoveryJournal.h"
#include "storage/journalFormat.h"
#include "storage/recovery.h"

#include "support/FullDisk.h"
#include "support/RecoveryFixture.h"
#include "support/errorOf.h"

#include <QCryptographicHash>
#include <QThread>

#include <random>

#include <sys/wait.h>
#include <unistd.h>

using namespace varnow;
using namespace varnow::test;

namespace {

/// Unsaved changes as texts, in an order of their own.
template <class Record> QStringList textsOf(const std::vector<UnsavedChange<Record>> &changes)
{
    QStringList texts;
    for (const UnsavedChange<Record> &change : changes) {
        QString text = change.isAddedAnew ? "anew" : "";
        for (const std::optional<Record> &record : {change.before, change.now}) {
            text += record ? " record" : " nothing";
            for (const Column<Record> &column :
                 record ? Record::columns() : std::span<const Column<Record>>())
                text += ' ' + std::visit([&](auto member) { return QVariant((*record).*member).toString(); },
                                         column.member);
        }
        texts += text;
    }
    texts.sort();
    return texts;
}

template <class Record> QStringList textsOf(const UnsavedChanges<Record> &unsaved)
{
    return textsOf(std::vector(unsaved.entries().cbegin(), unsaved.entries().cend()));
}

/// A line as the journal has it.
QByteArray journalLine(const QByteArray &json)
{
    return QCryptographicHash::hash(json, QCryptographicHash::Sha256).toHex().left(16) + ' ' + json + '\n';
}

struct JournalTest : RecoveryFixture
{
    /// Makes a step of what `change` does, and notes it.
    template <class Work> void step(Work work)
    {
        if (const EditStep *step = ModelFixture::edit([&](Edit &) { work(); }))
            journal.note(model, *step);
    }

    void storeField(int number, const QString &constant = {})
    {
        Field made = field("S", "F" + QString::number(number), number, number);
        made.constant = constant;
        step([&] { fields.store(made); });
    }

    /// The contents of the journal as the next start would read them.
    LeftChanges contents() const
    {
        leave(contentsOf(onlyFile()), "copy.journal");
        std::vector<LeftFile> left = LeftFile::findAll(database);
        EXPECT_EQ(left.size(), 1U) << "the other one is in use";
        const LeftChanges changes = left.at(0).read();
        left[0].remove();
        return changes;
    }

    void expectAllKept()
    {
        const LeftChanges kept = contents();
        EXPECT_EQ(textsOf(kept.lines), textsOf(lines.unsaved()));
        EXPECT_EQ(textsOf(kept.fields), textsOf(fields.unsaved()));
        EXPECT_EQ(kept.damagedParts, 0);
    }

    LeftChanges read(const QByteArray &bytes) const
    {
        leave(bytes, "read.journal");
        return LeftFile::findAll(database).at(0).read();
    }

    RecoveryJournal journal{database};
};

} // namespace

// Faults: a state that is not the record's last one, one that outlives undo; the file of nothing unsaved.
TEST_F(JournalTest, FollowsRandomSteps)
{
    std::mt19937 random(7);
    for (int i = 1; i <= 400; ++i) {
        const int number = int(random() % 12);
        switch (random() % 6) {
        case 0:
            if (const EditStep *undone = history.undo(model))
                journal.note(model, *undone);
            break;
        case 1:
            if (const EditStep *redone = history.redo(model))
                journal.note(model, *redone);
            break;
        case 2:
            step([&] {
                if (const int index = fields.find("S", "F" + QString::number(number), number); index >= 0)
                    fields.remove(index);
            });
            break;
        case 3:
            step([&] { lines.store(line(0, "S", "L" + QString::number(number), 0, 1 + number)); });
            break;
        default:
            storeField(number, number % 2 == 0 ? hostile : QString::number(i));
        }
        if (i % 20 == 0) {
            EXPECT_TRUE(journal.flush());
            expectAllKept();
        }
    }
    while (const EditStep *undone = history.undo(model))
        journal.note(model, *undone);
    EXPECT_TRUE(journal.flush());
    EXPECT_EQ(files(), QStringList());
}

// Faults: all written for each step; a file that grows for ever.
TEST_F(JournalTest, AppendsAndWritesAnewWhenLarge)
{
    step([&] {
        for (int i = 10; i < 2000; ++i)
            fields.store(field("S", "F" + QString::number(i), i));
    });
    EXPECT_TRUE(journal.flush());
    const qint64 whole = QFile(onlyFile()).size();
    qint64 largest = 0, appended = 0;
    for (int i = 0; i < 400; ++i) {
        const qint64 before = QFile(onlyFile()).size();
        storeField(10, QString::number(i).repeated(500));
        EXPECT_TRUE(journal.flush());
        const qint64 size = QFile(onlyFile()).size();
        appended += size > before && size - before < 3000 ? 1 : 0;
        largest = std::max(largest, size);
    }
    EXPECT_GT(appended, 390);
    EXPECT_LT(largest, 2 * whole + 6000);
    EXPECT_GT(largest, whole + 100'000) << "it was written anew before it had to be";
    expectAllKept();
    EXPECT_EQ(QDir(state()).entryList(QDir::Files).size(), 2) << "the file and its lock";
}

// Faults: earlier changes lost with a torn line; a damaged line that takes the others with it, or of which
// nobody hears; the only copy of it dropped.
TEST_F(JournalTest, KeepsWhatIsWhole)
{
    storeField(1, "one");
    EXPECT_TRUE(journal.flush());
    storeField(2, hostile);
    EXPECT_TRUE(journal.flush());
    const QByteArray whole = contentsOf(onlyFile());
    const QList<QByteArray> parts = whole.chopped(1).split('\n'); // header, 1, 2, time
    ASSERT_EQ(parts.size(), 4);
    const QByteArray first = parts[0] + '\n' + parts[1] + '\n';
    for (qsizetype length = 0; length < parts[2].size(); ++length) {
        const LeftChanges changes = readJournal(first + parts[2].left(length));
        ASSERT_EQ(changes.fields.size(), 1U);
        EXPECT_EQ(changes.fields[0].now->constant, "one");
        EXPECT_EQ(changes.damagedParts, 0);
    }
    for (qsizetype place = 0; place < whole.size(); ++place) {
        QByteArray damaged = whole;
        damaged[place] = char(damaged[place] ^ 4);
        const LeftChanges changes = readJournal(damaged);
        EXPECT_GE(changes.fields.size(), whole[place] == '\n' ? 0U : 1U) << place;
        EXPECT_TRUE(changes.damagedParts > 0 || place == whole.size() - 1) << place;
    }
    leave(parts[0] + '\n' + parts[1].chopped(2) + '\n' + parts[2] + '\n', "read.journal");
    LeftFile file = std::move(LeftFile::findAll(database).at(0));
    EXPECT_EQ(file.read().damagedParts, 1);
    file.remove();
    EXPECT_TRUE(QFile::exists(file.asidePath()));
}

// Faults: a column that was added makes an older file unreadable; what a newer version kept in one is
// dropped.
TEST_F(JournalTest, FollowsTheColumns)
{
    storeField(1, "one");
    EXPECT_TRUE(journal.flush());
    const QByteArray header = journalLine(R"({"version":2})");
    const auto withCells = [&](const QByteArray &cells) {
        return read(header + journalLine(R"({"kind":"field","key":["S","F",0],"state":{"before":null,"now":)"
                                         R"({"Configuration":"S","Name":"F")" +
                                         cells + "}}}"));
    };
    EXPECT_EQ(withCells("").fields.at(0).now->constant, "");
    EXPECT_EQ(withCells(R"(,"Newer":"","Newest":0)").fields.size(), 1U);
    EXPECT_NE(errorOf([&] { withCells(R"(,"Newer":"x")"); }), 0);
    EXPECT_NE(errorOf([&] { withCells(R"(,"Constant":7)"); }), 0);
    EXPECT_NE(errorOf([&] { read(journalLine(R"({"version":3})")); }), 0);
    EXPECT_NE(errorOf([&] { read(header + journalLine(R"({"kind":"page"})")); }), 0);
}

// Faults: the good file replaced by an empty or torn one, a change lost that comes when there is room again,
// silence.
TEST_F(JournalTest, KeepsTheFileWhenTheDiskIsFull)
{
    QString told = "nothing";
    RecoveryJournal teller(database, [&](const QString &problem) { told = problem; });
    storeField(1, "one");
    EXPECT_TRUE(journal.flush());
    const QByteArray before = contentsOf(onlyFile());
    bool isKept = true;
    {
        const FileSizeLimit limit(before.size() + 20);
        storeField(2, "two");
        isKept = journal.flush();
        teller.rewrite(model);
        teller.flush();
    }
    EXPECT_FALSE(isKept);
    EXPECT_EQ(contentsOf(onlyFile()), before);
    EXPECT_TRUE(journal.problem().contains(files()[0])) << journal.problem().toStdString();
    EXPECT_EQ(told.left(8), "The file");
    storeField(3, "three");
    EXPECT_TRUE(journal.flush());
    EXPECT_EQ(journal.problem(), "");
    expectAllKept();
    teller.rewrite(model);
    EXPECT_TRUE(teller.flush());
    teller.drop();
    EXPECT_TRUE(teller.flush());
    EXPECT_EQ(told, "");
}

// The same on a real disk, and one that may not be written at all.
TEST_F(JournalTest, OutlivesAFullAndAReadOnlyDisk)
{
    const QTemporaryDir folderOfDisk;
    const SmallDisk disk(folderOfDisk.path());
    if (!disk.isMounted())
        GTEST_SKIP() << "only an administrator can make a file system";
    useStateFolder(folderOfDisk.path());
    RecoveryJournal onDisk(database);
    const auto keep = [&](int number, const QString &constant) {
        storeField(number, constant);
        onDisk.note(model, *history.undoable());
        return onDisk.flush();
    };
    ASSERT_TRUE(disk.setWritable(false));
    EXPECT_FALSE(keep(0, "nothing"));
    ASSERT_TRUE(disk.setWritable(true));
    EXPECT_TRUE(keep(1, "one"));
    expectAllKept();
    {
        QFile filler(folderOfDisk.filePath("filler"));
        ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filler.write(QByteArray(4096, 'x')) == 4096)
            ;
    }
    const QByteArray before = contentsOf(onlyFile());
    EXPECT_FALSE(keep(2, QString("two").repeated(3000)));
    EXPECT_TRUE(onDisk.problem().contains("No space left")) << onDisk.problem().toStdString();
    EXPECT_EQ(contentsOf(onlyFile()), before);
    QFile::remove(folderOfDisk.filePath("filler"));
    EXPECT_TRUE(keep(3, "three"));
    expectAllKept();
}

// Fault: a folder that goes, or a file that somebody removes or changes, and changes that are nowhere since.
TEST_F(JournalTest, MakesAFileThatIsGoneAnew)
{
    storeField(1, "one");
    EXPECT_TRUE(journal.flush());
    QDir(state()).removeRecursively();
    EXPECT_TRUE(journal.flush());
    expectAllKept();
    QFile::remove(onlyFile());
    storeField(2, "two");
    EXPECT_TRUE(journal.flush());
    expectAllKept();
    QFile::resize(onlyFile(), 10);
    storeField(3, "three");
    EXPECT_TRUE(journal.flush());
    expectAllKept();
    EXPECT_TRUE(LeftFile::findAll(database).empty()) << "the lock is there again, too";
}

// Faults: what the user gave up comes back, or does not when the session goes on; what was not decided goes.
TEST_F(JournalTest, WritesEverythingAgainAfterADrop)
{
    edit();
    const UnsavedChange<Field> conflict{field("S", "F1", 1), field("S", "F1", 2), 1};
    LeftChanges conflicts;
    conflicts.fields = {conflict, conflict}; // two earlier runs
    journal.rewrite(model, conflicts);
    journal.noteDrafts({{"Field", "S", {"typed", hostile}}, {"Line", "S", {"x"}}});
    journal.noteDrafts({{"Field", "T", {"typed", hostile}}});
    EXPECT_TRUE(journal.flush());
    journal.drop();
    EXPECT_TRUE(journal.flush());
    EXPECT_EQ(files(), QStringList());
    storeField(7);
    EXPECT_TRUE(journal.flush());
    const LeftChanges kept = contents();
    EXPECT_EQ(textsOf(kept.lines), textsOf(lines.unsaved()));
    EXPECT_EQ(kept.fields.size(), std::size_t(fields.unsaved().entries().size()) + 2);
    EXPECT_EQ(kept.drafts, std::vector<PageDraft>({{"Field", "T", {"typed", hostile}}}));
}

// Faults: a database that is spelled in another way gets no offer, one that is another gets the wrong one.
TEST_F(JournalTest, BelongsToTheDatabase)
{
    QDir().mkpath(folder.filePath("a"));
    QDir().mkpath(folder.filePath("b"));
    for (const char *name : {"a/x.db", "b/x.db"})
        EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    QFile::link(folder.filePath("a"), folder.filePath("link"));
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.filePath("a"));
    const auto isFoundAs = [](const QString &server, const QString &name) {
        return !LeftFile::findAll({server, name, "user", ""}).empty();
    };
    const auto leaveFor = [&](const QString &server, const QString &name) {
        RecoveryJournal spelled({server, name, "user", ""});
        spelled.rewrite(model);
        spelled.flush();
    };
    edit();
    leaveFor("(sqlite)", "x.db");
    for (const QString &name : {QString("x.db"), QString("./x.db"), QString("../b/../a/x.db"),
                                QString(" x.db "), folder.filePath("link/x.db"), folder.filePath("a//x.db")})
        EXPECT_TRUE(isFoundAs("(SQLite)", name)) << name.toStdString();
    QDir::setCurrent(folder.filePath("b"));
    EXPECT_FALSE(isFoundAs("(sqlite)", "x.db"));
    EXPECT_TRUE(isFoundAs("(sqlite)", "../a/x.db"));
    EXPECT_FALSE(isFoundAs("(sqlite)", "../a/X.db"));
    leaveFor("Host", "Name");
    EXPECT_TRUE(isFoundAs(" hOST", "name "));
    EXPECT_FALSE(isFoundAs("host", "other"));
    QDir::setCurrent(before);
}

// Fault: what flush() promised is not there after a kill at whatever moment.
TEST_F(JournalTest, OutlivesAKill)
{
    std::mt19937 random(3);
    for (int round = 0; round < 20; ++round) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t writer = fork();
        if (writer == 0) {
            RecoveryJournal killed(database);
            for (int i = 1;; ++i) {
                const EditStep *step = ModelFixture::edit(
                    [&](Edit &) { fields.store(field("S", "K" + QString::number(i % 50), i)); });
                killed.note(model, *step);
                if (killed.flush() && write(ends[1], &i, sizeof i) != sizeof i)
                    _exit(1);
            }
        }
        close(ends[1]);
        QThread::msleep(5 + random() % 60);
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        int promised = 0;
        while (::read(ends[0], &promised, sizeof promised) == sizeof promised)
            ;
        close(ends[0]);
        std::vector<LeftFile> left = LeftFile::findAll(database);
        ASSERT_EQ(left.size(), promised > 0 ? 1U : left.size());
        int last = 0;
        for (LeftFile &file : left) {
            const LeftChanges changes = file.read();
            EXPECT_EQ(changes.damagedParts, 0);
            for (const auto &change : changes.fields)
                last = std::max(last, change.now->position);
            file.remove();
        }
        EXPECT_GE(last, promised);
        EXPECT_EQ(QDir(state()).entryList(QDir::Files), QStringList()) << "nothing else is left";
    }
}
