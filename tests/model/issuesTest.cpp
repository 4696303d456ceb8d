// Faults to catch: an issue that is missed, made twice, of the wrong record or out of the tree's order; a
// check that takes quadratic time.

#include "model/issues.h"

#include "support/ModelFixture.h"

using namespace varnow;
using namespace varnow::test;

namespace {

struct IssuesTest : testing::Test, ModelFixture
{
    IssueContext context{.configurations = {"S", "T"}, .dataFieldNames = {{"S", {"sex"}}}};

    /// Loads a field: "name index line/line index message index.position", then what is not usual.
    Field &made(const QString &name, int position, const QString &lineName = "PID", int messageIndex = 1)
    {
        m_made = field("S", name, position);
        m_made.line = lineName;
        m_made.messageIndex = messageIndex;
        return m_made;
    }

    void addFixed(const QString &name, int start, int length)
    {
        Field &fixed = made(name, start);
        fixed.fixedLength = 1;
        fixed.characterPosition = start;
        fixed.length = length;
        fields.store(fixed);
    }

    QStringList found(const std::optional<QString> &configuration = {})
    {
        QStringList texts;
        for (const Issue &issue : issuesIn(model, context, configuration)) {
            texts += issue.record.key.name + ": " + withoutIsolation(issue.text);
            if (issue.fix == Fix::MoveItsFields)
                texts.last() += " [" + issue.line.name + "]";
        }
        return texts;
    }

private:
    Field m_made;
};

} // namespace

TEST_F(IssuesTest, AreThoseOfTheTreeInItsOrder)
{
    storeLine(1, "S", "PID", 0, 1);
    storeLine(2, "S", "OBX", 2, 6);
    storeLine(3, "S", "NTE", 1, 3);
    storeLine(4, "S", "ORC", 0, 3);
    fields.store(made("moved", 1, "PID", 3));
    fields.store(made("hidden", 2, "PID", 9));
    fields.store(made("orphan", 1, "OBX", 6));
    fields.store(made("first", 7));
    Field second = made("second", 7);
    second.nameIndex = 2;
    second.lookup = "age";
    fields.store(second);
    const QString hidden = ", so that the tree does not show it.";
    const QString unknown = ", which is no data field name of the configuration.";
    const QString shown = "The tree shows it ";
    EXPECT_EQ(found(), QStringList({
                           "second: The lookup of field second(2) is \"age\"" + unknown,
                           "second: Field second(2) has position 7 of line PID as field first has" + hidden,
                           "NTE: No line before line NTE(1) has message index 2.",
                           "ORC: Line ORC has message index 3 as line NTE(1) has" + hidden,
                           "moved: Field moved has message index 3, but its line PID has 1. " + shown +
                               "under line NTE(1). [PID]",
                           "OBX: No line before line OBX(2) has a message index from 4 to 5.",
                           "orphan: Field orphan belongs to line OBX, which does not exist.",
                           "hidden: Field hidden has message index 9, but its line PID has 1. " + shown +
                               "nowhere. [PID]",
                       }));
    EXPECT_EQ(found("T"), QStringList());

    moveFieldsToLine(model, {"S", "PID", 0});
    EXPECT_EQ(found().filter("]"), QStringList());
}

TEST_F(IssuesTest, OfFixedLengthFieldsTellTheCharacters)
{
    storeLine(1, "S", "PID", 0, 1);
    addFixed("b", 4, 2);
    addFixed("a", 1, 5);
    addFixed("c", 5, 4);
    addFixed("d", 10, 2147483647);
    addFixed("e", 14, 0);
    addFixed("f", 0, 1);
    fields.store(made("plain", 20));
    EXPECT_EQ(found(), QStringList({
                           "f: Field f is a fixed-length field without a character position.",
                           "b: Field b overlaps field a at characters 4 to 5.",
                           "c: Field c overlaps field a at character 5.",
                           "d: No field fills character 9 of line PID, before field d.",
                           "e: Field e is a fixed-length field without a length.",
                       }));
}

TEST_F(IssuesTest, NameConfigurationsAndKeysThatTheDatabaseTakesForOthers)
{
    storeLine(1, "", "PID", 0, 1);
    storeLine(2, "S", "PID", 0, 1);
    storeLine(3, "s", "pid", 0, 1);
    for (const QString name : {"x", "X"})
        fields.store(field("T", name, name == "x" ? 1 : 2));
    storeLine(4, "T", "PID", 0, 1);
    EXPECT_EQ(found(), QStringList({
                           "PID: There are records of no configuration: 1 line and 0 fields.",
                           "pid: The configuration is not in the catalogue. It has 1 line and 0 fields.",
                       }));
    context.tellsLetterCaseApart = false;
    const QString text =
        " in letter case only, which the database does not tell apart: both are saved into one row.";
    EXPECT_EQ(found("T"),
              QStringList({"x: Field x differs from X" + text, "X: Field X differs from x" + text}));
    EXPECT_EQ(found("S"), QStringList("PID: Line PID differs from pid" + text));
}

// Quadratic time would take an hour.
TEST_F(IssuesTest, ComeAtOnceFromALargeConfiguration)
{
    for (int i = 1; i <= 1000; ++i)
        storeLine(i, "S", "L", i, i);
    std::vector<Field> rows;
    for (int i = 0; i < 100'000; ++i) {
        Field row = field("S", "F" + QString::number(i), i % 2000 / 2, i + 1);
        row.line = "L";
        row.lineIndex = row.messageIndex = i / 2000 + 1;
        row.fixedLength = row.characterPosition = row.length = 1;
        rows.push_back(row);
    }
    fields.assign(rows);
    context.tellsLetterCaseApart = false;
    EXPECT_EQ(issuesIn(model, context).size(), 50'000U + 50 * 1999U);
}
