#include "editor/frmLinesConfig.h"

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "editor/lineChoice.h"
#include "ui/MessageBox.h"
#include "util/modDiagnostics.h"
#include "util/modListTools.h"
#include "util/modMouse.h"
#include "util/modMsgbox.h"

namespace varnow {

namespace {

bool isConfirmed(QString prompt, const QString &title)
{
    return AskYesNo(prompt, title) == ui::answer::Yes;
}

/// Runs a removal by the name index that was typed; one that no 32-bit integer holds names no record.
template <class Remove> int removeByIndex(const QString &typedIndex, Remove remove)
{
    return guarded([&] { return remove(leadingNumber(typedIndex)); },
                   [](const RuntimeError &error) { return error.number(); });
}

} // namespace

void frmLinesConfig::removeShown()
{
    SetMousePointer(11);
    if (tsLines.currentPage() == LinesPage) {
        if (isConfirmed("Are you sure that you want to PERMANENTLY" + lineBreak +
                            "remove this line from this configuration?",
                        "Remove Line")) {
            if (removeLine())
                mChangesMade = true;
            RebuildTree();
        }
    } else if (isConfirmed("Are you sure that you want to PERMANENTLY" + lineBreak +
                               "remove this field from this configuration?",
                           "Remove Field")) {
        if (removeField())
            mChangesMade = true;
        RebuildTree();
    }
    SetMousePointer(0);
}

/// Removes the line named in the entry boxes, renumbers the rest and lets the fields follow.
/// Returns whether every step went well.
bool frmLinesConfig::removeLine()
{
    const auto refuse = [](const QStringList &lines, int style = ui::style::OkOnly) {
        ShowMessage(lines.join(lineBreak), style, QString());
        return false;
    };
    QString configuration = cboConfig.text();
    const QString name = Text1[0].text();
    int fields = 0;
    const int removed = removeByIndex(Text1[1].text(), [&](int nameIndex) {
        CountFieldsForLine(configuration, name, nameIndex, fields);
        return fields > 0 ? 0 : RemoveLabLineConfigRecord(configuration, name, nameIndex);
    });
    if (fields > 0)
        return refuse({"Can not remove line.", "There are existing fields for this line.",
                       "If you want to remove this line, first", "remove any existing fields and then",
                       "remove the line."},
                      ui::style::Information);
    if (removed != 0)
        return refuse({"An unexpected error occurred while removing this line.",
                       "The data for this line may not be removed."});
    if (RenumberLabLineMsgIndices(configuration) != 0)
        return refuse({"The Message Index values were changed", "due to the removal of the line.  An",
                       "unexpected error occurred the prevented", "the updating of some or all of the",
                       "remaining line configurations."});
    if (SyncLabLineFldMsgIndices() != 0)
        return refuse({"The Message Index values were changed", "due to the removal of the line.  An",
                       "unexpected error occurred the prevented", "the re-syncronization of the Line Fields",
                       "Message Indices with those for the Lines."});
    return true;
}

/// Removes the field named in the entry boxes. Returns whether that went well.
bool frmLinesConfig::removeField()
{
    QString configuration = cboConfig.text();
    QString name = Text2[0].text();
    const int removed = removeByIndex(Text2[1].text(), [&](int nameIndex) {
        return RemoveLabLineFldCfgRecord(-1, configuration, name, nameIndex);
    });
    if (removed != 0)
        ShowMessage("An unexpected error occurred while removing this field." + lineBreak +
                    "The data for this field may not be removed.");
    return removed == 0;
}

void frmLinesConfig::CountFieldsForLine(const QString &Configuration, const QString &LineName, int NameIndex,
                                        int &Count)
{
    const QString configuration = trim(Configuration);
    const QString line = trim(LineName);
    Count = 0;
    for (const LabLineFldCfgRecord &field : LabLineFldTable) {
        if (trim(field.Configuration) == configuration && trim(field.Line) == line &&
            (NameIndex <= 0 || field.LineIndex == NameIndex))
            ++Count;
    }
}

void frmLinesConfig::clearPage()
{
    if (tsLines.currentPage() == LinesPage) {
        ClearLineEntry();
        Text1[2].setText(QString::number(GetNextMsgIndexNumber(cboConfig.text())));
        Text1[0].setFocus();
        return;
    }
    const QString line = Combo2[0].text();
    ResetFieldEntry();
    Combo2[0].setText(line);
    takeOverMessageIndex();
    if (Combo2[0].text().isEmpty() && !Text1[0].text().isEmpty())
        Combo2[0].setSelectedIndex(FindListIndex(Combo2[0], trim(Text1[0].text()), false));
    proposePosition();
    Text2[0].setFocus();
}

/// Writes the next free position of the chosen line into the position box.
void frmLinesConfig::proposePosition()
{
    const QString text = trim(Combo2[0].text());
    if (text.isEmpty())
        return;
    const LineChoice line = parseLineChoice(text);
    const auto propose = [&] {
        const int lineIndex = leadingNumber(line.index);
        if (lineIndex >= 0 && !line.name.isEmpty())
            Text2[5].setText(
                QString::number(GetNextFieldPositionForLine(cboConfig.text(), line.name, lineIndex)));
        return 0;
    };
    guarded(propose, [](const RuntimeError &error) { return error.number(); });
}

} // namespace varnow
