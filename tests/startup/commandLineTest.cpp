// What the program makes of its words, and what others can read of them.

#include "startup/modCommandLine.h"
#include "startup/modGlobals.h"
#include "support/TdsServer.h"
#include "support/TestDatabase.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTest>

namespace varnow::test {

namespace {

QStringList letters(int count)
{
    QStringList words;
    for (int i = 0; i < count; ++i)
        words += QChar(u'a' + i);
    return words;
}

} // namespace

// Quotes that group, separators that count, words behind the last one allowed.
TEST(CommandLine, SplitsAtBlanksAndTabsAlone)
{
    const struct
    {
        QString text;
        QStringList words;
        int maximum = 10;
    } cases[] = {
        {"", {}},
        {" \t ", {}},
        {"one", {"one"}},
        {"\t one \t\ttwo  ", {"one", "two"}},
        {"\"two words\" \"\"", {"\"two", "words\"", "\"\""}},
        {"a\nb\u00a0c", {"a\nb\u00a0c"}},
        {letters(10).join(' '), letters(10)},
        {letters(12).join(' ') + ' ', letters(10)},
        {"one two three", {"one", "two"}, 2},
        {"one", {}, 0},
    };
    for (const auto &[text, words, maximum] : cases)
        EXPECT_EQ(GetCommandLine(text, maximum), QStringList(QString()) + words) << qPrintable(text);
}

// Help that needs a display, or that counts as a server's name.
TEST(Program, TellsAboutItselfWithoutADisplay)
{
    QProcess program;
    QProcessEnvironment bare = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        bare.remove(name);
    program.setProcessEnvironment(bare);
    const auto output = [&program](const QString &word) {
        program.start(VARNOW_PROGRAM, {word});
        program.waitForFinished(-1);
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        return QString::fromUtf8(program.readAllStandardOutput());
    };
    EXPECT_TRUE(output("--version").startsWith("varnow "));
    const QString help = output("--help");
    for (const char *word : {"configuration-server", "velmora-password", "(sqlite)", "\"\""})
        EXPECT_TRUE(help.contains(word)) << word;
}

// A password that every user of the machine can read.
TEST(Program, BlanksItsWordsInTheProcessList)
{
    TestDatabase database(Engine::SqlServer);
    database.server()->failLogins({.kind = Fault::Hang});
    const QStringList words{gCfgServer, gCfgDatabase, gCfgUser, gCfgPassword};
    QProcess program;
    program.start(VARNOW_PROGRAM, words + words);
    while (program.state() != QProcess::NotRunning && database.server()->logins().empty())
        QTest::qWait(1); // it has read its words once it logs in
    ASSERT_FALSE(database.server()->logins().empty());
    QFile list(QStringLiteral("/proc/%1/cmdline").arg(program.processId()));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    EXPECT_EQ(list.readAll().replace('\0', ""), QByteArray(VARNOW_PROGRAM));
    EXPECT_EQ(database.server()->logins().front().password, gCfgPassword);
    program.kill();
    program.waitForFinished(-1);
}

} // namespace varnow::test
