// Faults to catch: a copy that changes the order, takes identifiers along, touches what was to be skipped,
// puts two lines at one place, or takes more than one step to undo.

#include "model/copyConfiguration.h"

#include "support/ModelFixture.h"

using namespace varnow;
using namespace varnow::test;

namespace {

struct CopyTest : testing::Test, ModelFixture
{
    CopyTest()
    {
        storeLine(1, "S", "PID", 0, 1);
        storeLine(2, "S", "OBX", 0, 2);
        for (const QString name : {"a", "b", "twin of b", "c"}) {
            Field made = field("S", name, name == "a" ? 1 : 2, 7);
            made.line = name == "c" ? "OBX" : "PID";
            made.messageIndex = name == "c" ? 2 : 1;
            fields.appendLoaded(made);
        }
    }

    void copy(EqualKeys equalKeys)
    {
        edit([&](Edit &edit) { copyConfiguration(edit.model(), "S", "T", equalKeys); });
    }

    QStringList target() const
    {
        QStringList texts;
        const auto add = [&](const auto &table, auto textOf) {
            for (const auto &record : table) {
                if (record.configuration == "T")
                    texts += QString::number(record.id) + ' ' + record.name + ' ' + textOf(record);
            }
        };
        add(lines, [](const Line &line) { return QString::number(line.messageIndex); });
        add(fields, [](const Field &field) {
            return QStringLiteral("%1.%2").arg(field.messageIndex).arg(field.position);
        });
        return texts;
    }
};

} // namespace

TEST_F(CopyTest, KeepsTheOrderInOneStep)
{
    copy(EqualKeys::Skip);
    EXPECT_EQ(target(),
              QStringList({"-1 PID 1", "-1 OBX 2", "-1 a 1.1", "-1 b 1.2", "-1 twin of b 1.2", "-1 c 2.2"}));
    history.undo(model);
    EXPECT_EQ(target(), QStringList());
    EXPECT_EQ(history.undoable(), nullptr);
    copyConfiguration(model, "S", "S", EqualKeys::Replace);
    EXPECT_EQ(lines.size(), 2);
}

TEST_F(CopyTest, ReplacesOrSkipsEqualKeys)
{
    storeLine(8, "T", "MSH", 0, 1);
    storeLine(9, "T", "OBX", 0, 2);
    Field kept = field("T", "c", 5, 3);
    kept.line = "OBX";
    kept.messageIndex = 2;
    fields.store(kept);
    const CopyCount lineCount = countLinesToCopy(model, "S", "T");
    const CopyCount fieldCount = countFieldsToCopy(model, "S", "T");
    EXPECT_EQ(QList<int>({lineCount.source, lineCount.target, lineCount.equal}), QList<int>({2, 2, 1}));
    EXPECT_EQ(QList<int>({fieldCount.source, fieldCount.target, fieldCount.equal}), QList<int>({4, 1, 1}));
    copy(EqualKeys::Skip);
    EXPECT_EQ(target(), QStringList({"8 MSH 1", "9 OBX 2", "-1 PID 3", "3 c 2.5", "-1 a 3.1", "-1 b 3.2",
                                     "-1 twin of b 3.2"}));
    history.undo(model);
    copy(EqualKeys::Replace);
    EXPECT_EQ(target(), QStringList({"8 MSH 1", "9 OBX 3", "-1 PID 2", "-1 a 2.1", "-1 b 2.2",
                                     "-1 twin of b 2.2", "3 c 3.2"}));
}
