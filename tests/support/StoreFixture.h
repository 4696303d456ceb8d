#pragma once

#include "fields/modLabLineFldCfg.h"
#include "lines/modLabLineCfg.h"
#include "startup/modGlobals.h"
#include "support/MessageLog.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

#include <vector>

/// Runs a suite derived from StoreTest on every engine.
#define ON_EVERY_ENGINE(Suite)                                                                               \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite, varnow::test::everyEngine(),                                    \
                             [](const auto &suite) { return varnow::test::engineName(suite.param); })

namespace varnow::test {

/// Empty stores and recorded message boxes.
struct StoreFixture
{
    StoreFixture()
    {
        emptyStores();
        gMsgTitle = QStringLiteral("Configuration");
    }
    ~StoreFixture()
    {
        emptyStores();
        gMsgTitle.clear();
    }
    StoreFixture(const StoreFixture &) = delete;
    StoreFixture &operator=(const StoreFixture &) = delete;

    static void emptyStores()
    {
        LabLineTable.clear();
        RemovedLabLineTable.clear();
        LabLineFldTable.clear();
        RemovedLabLineFldTable.clear();
    }

    static int storeLine(int id, QString configuration, const QString &name, int nameIndex, int msgIndex)
    {
        return StoreDataInLabLineConfigRecordArray(id, configuration, name, nameIndex, msgIndex, 0, {}, {},
                                                   {});
    }

    static int storeField(LabLineFldCfgRecord field)
    {
        return StoreDataInLabLineFldCfgArray(
            field.Configuration, field.Name, field.Line, field.Position, field.MsgIndex, field.NameIndex,
            field.LineIndex, field.id, field.Length, field.DataType, field.LookupString, field.FormatString,
            field.Constant, field.FixedLength, field.PadChar, field.PadDirection, field.FieldPosition);
    }

    MessageLog messages;
};

/// The stores on a database of their own, once per engine.
class StoreTest : public testing::TestWithParam<Engine>, public StoreFixture
{
protected:
    /// Expects exactly these plain boxes since the last call.
    void expectBoxes(const QStringList &prompts)
    {
        std::vector<Box> expected;
        for (const QString &prompt : prompts)
            expected.push_back({prompt});
        EXPECT_EQ(messages.take(), expected);
    }

    /// The summary of a run.
    static QString summary(const char *title, int errors, int correct)
    {
        return QStringLiteral("%1\r\n  %2 errors occurred\r\n  %3 records processed correctly.")
            .arg(QString::fromLatin1(title))
            .arg(errors)
            .arg(correct);
    }

    /// Makes the database refuse rows of this name, whatever statement touches them.
    void refuse(const QString &table, const QString &name)
    {
        for (const QString &event :
             {QStringLiteral("INSERT"), QStringLiteral("UPDATE"), QStringLiteral("DELETE")}) {
            const QString row =
                event == QStringLiteral("INSERT") ? QStringLiteral("NEW") : QStringLiteral("OLD");
            database.run(QStringLiteral("CREATE TRIGGER %1_%2 BEFORE %2 ON %1 WHEN %3.Name = '%4' "
                                        "BEGIN SELECT RAISE(ABORT, 'refused'); END;")
                             .arg(table, event, row, name));
        }
    }

    void accept(const QString &table)
    {
        database.run(QStringLiteral("DROP TRIGGER %1_INSERT; DROP TRIGGER %1_UPDATE; DROP TRIGGER %1_DELETE;")
                         .arg(table));
    }

    /// A field of line PID(0) with MsgIndex 1, with this key and position.
    static LabLineFldCfgRecord field(const QString &configuration, const QString &name, int position)
    {
        LabLineFldCfgRecord record;
        record.id = -1;
        record.Configuration = configuration;
        record.Name = name;
        record.Line = QStringLiteral("PID");
        record.Position = position;
        record.MsgIndex = 1;
        return record;
    }

    TestDatabase database{GetParam()};
};

} // namespace varnow::test
