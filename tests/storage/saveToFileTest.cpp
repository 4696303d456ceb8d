// What a save promises on a file: its statements are committed in groups, and what the summary calls
// processed is on disk, whatever befalls the file or the program.

#include "base/RuntimeError.h"
#include "support/StorageFixture.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <QtEndian>

#include <csignal>
#include <future>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace varnow::test {

namespace {

/// Lines L1 to Ln and fields F1 to Fn, and a file without rows to save them to.
struct SaveToFile : Storage
{
    explicit SaveToFile(int count) : Storage(Engine::Sqlite)
    {
        settings.timeout = 1;
        for (int i = 1; i <= count; ++i) {
            storeLine(0, "S", "L" + QString::number(i), 0, i);
            Field full = field("S", "F" + QString::number(i), i);
            full.constant = QString(1000, u'x');
            fields.store(full);
        }
    }

    /// Saves, and expects the summaries to tell what is in the file. Returns the number of errors.
    int errorsOfSave()
    {
        save();
        const int lineCount = int(rowsOf("LabLineConfig").size());
        const int fieldCount = int(rowsOf("LabLineFieldConfig").size());
        expectMessages({summary(linesSaved, lines.size() - lineCount, lineCount),
                        summary(fieldsSaved, fields.size() - fieldCount, fieldCount)});
        return lines.size() - lineCount + fields.size() - fieldCount;
    }

    QStringList rowsOf(const QString &table)
    {
        return database.run("SELECT Name || '|' || id FROM " + table + " ORDER BY id");
    }

    /// Number of commits that the file has seen.
    quint32 commits()
    {
        QFile file(database.file());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly) && file.seek(24));
        return qFromBigEndian<quint32>(file.read(4).data());
    }
};

} // namespace

// Faults: a disk that is waited for at every statement, or a long save of which nothing is written for long.
TEST(SaveToFile, CommitsInGroupsOfAQuarterOfASecond)
{
    SaveToFile save(300);
    const quint32 before = save.commits();
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(save.errorsOfSave(), 0);
    EXPECT_LE(save.commits() - before, 2 + timer.elapsed() / 250);

    SaveToFile slow(3);
    qsizetype written = 0;
    slow.run.goesOn = [&](const QString &part, int record) {
        if (record == 1)
            QThread::msleep(300);
        if (part == "Saving the lines" && record == 2)
            written = slow.rowsOf("LabLineConfig").size();
        return true;
    };
    EXPECT_EQ(slow.errorsOfSave(), 0);
    EXPECT_GE(written, 1);
}

// Faults: a group that cannot be committed and takes good records with it, is counted as written, or keeps
// them from the next save.
TEST(SaveToFile, WritesOneByOneWhatAFullDiskTakes)
{
    SaveToFile save(20);
    rlimit unlimited{};
    getrlimit(RLIMIT_FSIZE, &unlimited);
    const rlimit limit{rlim_t(QFile(save.database.file()).size()) + 8192, unlimited.rlim_max};
    const auto before = signal(SIGXFSZ, SIG_IGN); // writing fails instead
    setrlimit(RLIMIT_FSIZE, &limit);
    const int errors = save.errorsOfSave();
    setrlimit(RLIMIT_FSIZE, &unlimited);
    signal(SIGXFSZ, before);
    EXPECT_GT(errors, 0);
    EXPECT_LT(errors, 20) << "there was room for some fields";
    EXPECT_EQ(save.errorsOfSave(), 0);
}

// The same with a group that cannot begin either, while another program has the file; and a user who cannot
// stop what waits for it.
TEST(SaveToFile, WritesOneByOneWhatALockedFileTakes)
{
    struct Case
    {
        const char *lock;
        int releasedAt; // the records of the run that have begun then
        int stoppedAt;
        int errors;
    };
    const char *reading = "BEGIN; SELECT COUNT(*) FROM LabLineConfig"; // groups begin
    const char *writing = "BEGIN IMMEDIATE";                           // none begins
    for (const Case &each : {Case{reading, 2, 9, 0}, {reading, 9, 2, 4}, {writing, 1, 9, 1}}) {
        SaveToFile save(2);
        bool isLocked = true;
        const auto release = [&] {
            if (std::exchange(isLocked, false))
                save.database.run("COMMIT");
        };
        save.database.run(each.lock);
        save.run.goesOn = [&](const QString &, int record) {
            if (record == each.releasedAt)
                release();
            return record < each.stoppedAt;
        };
        EXPECT_EQ(save.errorsOfSave(), each.errors) << each.lock << each.releasedAt;
        release();
        save.run.goesOn = {};
        EXPECT_EQ(save.errorsOfSave(), 0);
    }
}

// Faults: a group that goes on although the database has given it up, so that records stand in the file
// before those that were saved before them; one that is left open behind an error, and takes with it what
// follows.
TEST(SaveToFile, EndsAGroupThatTheDatabaseOrAnErrorHasEnded)
{
    SaveToFile refused(4);
    refused.database.run("CREATE TRIGGER refuse BEFORE INSERT ON LabLineFieldConfig WHEN NEW.Name = 'F2' "
                         "BEGIN SELECT RAISE(ROLLBACK, 'refused'); END");
    QStringList written;
    refused.run.goesOn = [&](const QString &part, int record) {
        if (part == "Saving the fields" && record == 3)
            written = refused.rowsOf("LabLineFieldConfig");
        return true;
    };
    EXPECT_EQ(refused.errorsOfSave(), 1);
    EXPECT_EQ(written, QStringList("F1|1"));

    SaveToFile interrupted(2);
    interrupted.fields.removeRow({});
    interrupted.fields.removeRow({});
    interrupted.run.goesOn = [](const QString &part, int record) {
        if (part == "Deleting the removed fields" && record == 1)
            throw RuntimeError(errors::OutOfMemory);
        return true;
    };
    EXPECT_EQ(interrupted.errorsOfSave(), 0);
}

// Faults: two editors that keep each other from the file, or that both give a record a row.
TEST(SaveToFile, IsSharedByTwoEditors)
{
    SaveToFile one(2000), other(2000);
    one.settings.timeout = db::connectionTimeout;
    other.settings = one.settings;
    const auto otherSave = std::async(std::launch::async, [&] { other.save(); });
    EXPECT_EQ(one.errorsOfSave(), 0);
    otherSave.wait();
    other.expectMessages({summary(linesSaved, 0, 2000), summary(fieldsSaved, 0, 2000)});
}

// Faults: a program that is killed and leaves a file that cannot be opened, misses a record in between, or
// cannot be completed.
TEST(SaveToFile, LeavesTheFirstRowsWhenTheProgramIsKilled)
{
    SaveToFile whole(200);
    EXPECT_EQ(whole.errorsOfSave(), 0);
    const QStringList lineRows = whole.rowsOf("LabLineConfig");
    const QStringList fieldRows = whole.rowsOf("LabLineFieldConfig");
    std::vector<std::pair<std::unique_ptr<SaveToFile>, pid_t>> programs;
    for (int i = 0; i < 20; ++i) {
        auto save = std::make_unique<SaveToFile>(200);
        save->run.goesOn = [](const QString &, int) { return QThread::msleep(2), true; };
        const pid_t program = fork();
        if (program == 0) {
            save->save();
            _exit(0);
        }
        ASSERT_GT(program, 0) << "killing it would kill everything";
        programs.emplace_back(std::move(save), program);
    }
    for (auto &[save, program] : programs) {
        QThread::msleep(45);
        kill(program, SIGKILL);
        waitpid(program, nullptr, 0);
        const QStringList lines = save->rowsOf("LabLineConfig");
        const QStringList fields = save->rowsOf("LabLineFieldConfig");
        EXPECT_EQ(lines + fields, (lineRows + fieldRows).mid(0, lines.size() + fields.size()));
        EXPECT_EQ(save->database.run("PRAGMA integrity_check"), QStringList("ok"));
        save->run.goesOn = {};
        EXPECT_EQ(save->errorsOfSave(), 0);
        EXPECT_EQ(save->rowsOf("LabLineConfig") + save->rowsOf("LabLineFieldConfig"), lineRows + fieldRows);
    }
}

} // namespace varnow::test
