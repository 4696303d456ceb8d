// Starting: what the program takes until its editor is shown, beside one that shows an empty window.

#include "rows.h"
#include "sideBySide.h"

#include <QFile>
#include <QTemporaryDir>

#include <signal.h>
#include <spawn.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace varnow::bench {

namespace {

struct Usage
{
    double processorSeconds;
    double residentBytes;
};

/// A program of its own, ended with this object. It is spawned: a forked one would begin with a copy of this
/// process's memory, and getting rid of that counts as its own time, more of it the more was measured before.
class Program
{
public:
    explicit Program(std::vector<std::string> words)
    {
        std::vector<char *> arguments;
        for (std::string &word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        if (posix_spawn(&m_process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
            std::abort();
    }
    ~Program()
    {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    /// Waits until nothing is left to do but to wait for the user; returns what it took until then.
    Usage untilIdle() const
    {
        double before = -1;
        for (int idle = 0; idle < 10;) {
            usleep(30'000);
            const double now = processorSeconds();
            idle = now == before && isSleeping() ? idle + 1 : 0;
            before = now;
        }
        return {before, residentBytes()};
    }

private:
    QByteArray proc(const char *name) const
    {
        QFile file(QStringLiteral("/proc/%1/%2").arg(m_process).arg(QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    double processorSeconds() const
    {
        clockid_t clock{};
        timespec time{};
        if (clock_getcpuclockid(m_process, &clock) != 0 || clock_gettime(clock, &time) != 0)
            std::abort();
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    bool isSleeping() const { return proc("stat").contains(") S "); }
    double residentBytes() const { return proc("statm").split(' ').value(1).toDouble() * 4096; }

    pid_t m_process = 0;
};

/// The sample database in a folder of its own.
class SampleDatabase
{
public:
    SampleDatabase()
    {
        sqlite3 *connection = nullptr;
        sqlite3_open(file().c_str(), &connection);
        for (const char *path : {SQL_FOLDER "/schema.sql", SQL_FOLDER "/sample.sql"}) {
            QFile statements(QString::fromLatin1(path));
            if (!statements.open(QIODevice::ReadOnly) ||
                sqlite3_exec(connection, statements.readAll(), nullptr, nullptr, nullptr) != SQLITE_OK)
                std::abort();
        }
        sqlite3_close(connection);
    }

    std::string file() const { return m_folder.filePath(QStringLiteral("sample.db")).toStdString(); }

private:
    QTemporaryDir m_folder;
};

/// The program that was built, unless another one is named.
std::string programFile()
{
    return qEnvironmentVariable("VARNOW_PROGRAM", QStringLiteral(VARNOW_PROGRAM)).toStdString();
}

void startBesideEmptyWindow(benchmark::State &state, double atMost, double Usage::*figure)
{
    const SampleDatabase database;
    const std::string file = database.file();
    const auto start = [&](const std::vector<std::string> &words) {
        return Program(words).untilIdle().*figure;
    };
    sideBySide(
        state, atMost,
        [&] {
            return start(
                {programFile(), "(sqlite)", file, "admin", "\"\"", "(sqlite)", file, "admin", "\"\""});
        },
        [&] { return start({EMPTY_WINDOW_PROGRAM}); });
}

} // namespace

void addStartRows()
{
    addRow("start to the editor shown, processor | empty window", "s", 9,
           [](benchmark::State &state) { startBesideEmptyWindow(state, 2.3, &Usage::processorSeconds); });
    addRow("start to the editor shown, resident | empty window", "bytes", 3,
           [](benchmark::State &state) { startBesideEmptyWindow(state, 1.55, &Usage::residentBytes); });
}

} // namespace varnow::bench
