#include "display/frmTest.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "fields/modLabLineFldCfg.h"
#include "lines/modLabLineCfg.h"
#include "util/modDiagnostics.h"
#include "util/modMsgbox.h"

#include <QStringList>

namespace varnow {

namespace {

constexpr float margin = 120;
constexpr float minimumWidth = 4900;
constexpr float minimumHeight = 2550;

QString indexed(const QString &name, int index)
{
    return name + "(" + QString::number(index) + ")";
}

QStringList rowsOf(const LabLineConfigRecord &line)
{
    return {QString::number(line.id) + "  " + indexed(line.Name, line.NameIndex),
            "\tMsgIndex: " + QString::number(line.MsgIndex)};
}

QStringList rowsOf(const LabLineFldCfgRecord &field)
{
    return {QString::number(field.id) + "  " + indexed(field.Name, field.NameIndex),
            "\tLine: " + indexed(field.Line, field.LineIndex),
            "\tMsgIndex.Position: " + QString::number(field.MsgIndex) + "." + QString::number(field.Position),
            "\tLookup: " + field.LookupString,
            "\tConstant: " + field.Constant,
            "\tFormat: " + field.FormatString,
            "\tFixed Length: " + QString::number(field.FixedLength),
            "\t\tLength: " + QString::number(field.Length),
            "\t\tAlignment: " + QString::number(field.PadDirection),
            "\t\tPad Character: " + field.PadChar};
}

/// Fills the list with the rows of every record. A failure, an empty store among them, is shown.
template <class Table> void listRecords(ui::ListBox &list, const Table &table, const QString &failure)
{
    const auto fill = [&] {
        list.clear();
        if (table.isEmpty())
            throw RuntimeError(errors::SubscriptOutOfRange);
        for (const auto &record : table) {
            for (const QString &row : rowsOf(record))
                list.addItem(row);
        }
        return 0;
    };
    const auto report = [&](const RuntimeError &error) {
        ShowMessage(
            QStringList{failure, QStringLiteral("Error: %1").arg(error.number()), error.description()}.join(
                lineBreak));
        return error.number();
    };
    guarded(fill, report);
}

} // namespace

frmTest::frmTest() : ui::Window("frmTest", "Data Display", 5565, 4080)
{
    List1.setAccessibleName("Records in memory");
    setFocusOrder({&List1, &cmdLines, &cmdFields, &cmdExit});
    onLoad = [this] { List1.clear(); };
    onResize = [this] { layOut(); };
    cmdLines.onClick = [this] { listLines(); };
    cmdFields.onClick = [this] { listFields(); };
    cmdExit.onClick = [this] { unload(); };
}

void frmTest::listLines()
{
    listRecords(List1, LabLineTable, "Error loading lines.");
}

void frmTest::listFields()
{
    listRecords(List1, LabLineFldTable, "Error loading fields");
}

void frmTest::layOut()
{
    if (isMinimised())
        return;
    enforceMinimumSize(minimumWidth, minimumHeight);
    cmdExit.move(innerWidth() - (cmdExit.width() + margin), innerHeight() - (cmdExit.height() + margin));
    cmdFields.move(cmdExit.left() - cmdFields.width(), cmdExit.top());
    cmdLines.move(cmdFields.left() - cmdLines.width(), cmdExit.top());
    SSPanel1.move({margin, margin, innerWidth() - 2 * margin, cmdExit.top() - 2 * margin});
    List1.move({margin, margin, SSPanel1.width() - 2 * margin, SSPanel1.height() - 2 * margin});
}

} // namespace varnow
