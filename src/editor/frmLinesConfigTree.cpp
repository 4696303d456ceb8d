#include "editor/frmLinesConfig.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "editor/nodeKeys.h"
#include "ui/MessageBox.h"
#include "util/modDiagnostics.h"
#include "util/modListTools.h"
#include "util/modMouse.h"
#include "util/modMsgbox.h"

#include <algorithm>

namespace varnow {

void frmLinesConfig::RebuildTree()
{
    ClearTree();
    const QString configuration = trim(cboConfig.text());
    const auto build = [&] {
        for (const LabLineConfigRecord &line : LabLineTable) {
            if (trim(line.Configuration) == configuration)
                AddLineNode(line);
        }
        for (const LabLineFldCfgRecord &field : LabLineFldTable) {
            if (trim(field.Configuration) == configuration)
                AddFieldNode(field);
        }
        return 0;
    };
    tvLines.beginUpdate();
    guarded(build, [](const RuntimeError &error) { return error.number(); });
    tvLines.endUpdate();
}

void frmLinesConfig::ClearTree()
{
    tvLines.clear();
    mNodeRecords.clear();
    mLineNodes.clear();
}

void frmLinesConfig::AddLineNode(const LabLineConfigRecord &line)
{
    const QString msgIndex = QString::number(line.MsgIndex);
    const QString key = lineNodeKey(msgIndex);
    QString text = msgIndex + " " + trim(line.Name);
    if (line.NameIndex != 0)
        text += QStringLiteral("(%1)").arg(line.NameIndex);

    if (const int existing = tvLines.find(key); existing != ui::TreeView::none) {
        offerToUpdateNode(existing, text, line);
        return;
    }
    // The node goes after the one added before the first whose message index is not smaller.
    const auto notSmaller =
        std::partition_point(mLineNodes.begin(), mLineNodes.end(),
                             [&](const LineNode &added) { return added.greatestMsgIndex < line.MsgIndex; });
    const int node = notSmaller == mLineNodes.begin()
                         ? tvLines.addRoot(key, text)
                         : tvLines.addAfter(std::prev(notSmaller)->node, key, text);
    mNodeRecords.push_back({line.Name, line.NameIndex});
    const int greatest =
        mLineNodes.empty() ? line.MsgIndex : std::max(line.MsgIndex, mLineNodes.back().greatestMsgIndex);
    mLineNodes.push_back({node, greatest});
}

void frmLinesConfig::offerToUpdateNode(int node, const QString &text, const LabLineConfigRecord &line)
{
    QString title;
    const int answer = ShowMessage("A node with this message index already esists." + lineBreak +
                                       "Do you wish to update this node?",
                                   ui::style::YesNo | ui::style::Question, title, true);
    if (answer != ui::answer::Yes)
        return;
    tvLines.setText(node, text);
    mNodeRecords[static_cast<std::size_t>(node)] = {line.Name, line.NameIndex};
}

void frmLinesConfig::AddFieldNode(const LabLineFldCfgRecord &field)
{
    if (tvLines.nodeCount() == 0) {
        ShowMessage("The system requires a line for field attachment." + lineBreak +
                    "Please check your input and try again.");
        return;
    }
    const QString msgIndex = QString::number(field.MsgIndex);
    const QString position = QString::number(field.Position);
    const QString key = fieldNodeKey(msgIndex, position);
    const int line = tvLines.find(lineNodeKey(msgIndex));
    if (line == ui::TreeView::none || tvLines.find(key) != ui::TreeView::none)
        return;

    QString text = msgIndex + "." + position + " " + trim(field.Name);
    if (field.NameIndex > 0)
        text += QStringLiteral("(%1)").arg(field.NameIndex);
    tvLines.ensureVisible(tvLines.addChild(line, key, text));
    mNodeRecords.push_back({field.Name, field.NameIndex});
}

void frmLinesConfig::showSelectedRecord()
{
    const int node = tvLines.selectedNode();
    if (node == ui::TreeView::none)
        return;
    const bool isLine = tvLines.parent(node) == ui::TreeView::none;
    const NodeRecord record = mNodeRecords[static_cast<std::size_t>(node)];
    tsLines.setCurrentPage(isLine ? LinesPage : FieldsPage);
    if (isLine)
        showLine(record.Name, record.NameIndex);
    else
        showField(record.Name, record.NameIndex);
}

void frmLinesConfig::showLine(const QString &name, int nameIndex)
{
    QString trimmedName = name;
    int start = 0;
    const int index =
        FindLabLineConfigIndexByName(cboConfig.text(), trimmedName, nameIndex < 1 ? -1 : nameIndex, start);
    if (index < 0) {
        ClearLineEntry();
        return;
    }
    mCurrentLineIndex = index;
    DisplayCurrentLine();
}

void frmLinesConfig::showField(const QString &name, int nameIndex)
{
    QString configuration = cboConfig.text();
    QString trimmedName = name;
    int start = 0;
    const int index = FindLabLineFldConfigIndexByName(configuration, trimmedName, nameIndex, start, 1);
    if (index < 0) {
        ResetFieldEntry();
        return;
    }
    mCurrentFieldIndex = index;
    DisplayCurrentField();
    const LabLineFldCfgRecord &field = LabLineFldTable[index];
    showLine(field.Line, field.LineIndex);
}

void frmLinesConfig::DisplayCurrentLine()
{
    const auto display = [this] {
        const QString configuration = cboConfig.text();
        if (trim(LabLineTable[mCurrentLineIndex].Configuration) != configuration) {
            mCurrentLineIndex = -1;
            const auto first = std::find_if(LabLineTable.begin(), LabLineTable.end(), [&](const auto &line) {
                return line.Configuration == configuration;
            });
            if (first != LabLineTable.end())
                mCurrentLineIndex = static_cast<int>(std::distance(LabLineTable.begin(), first));
        }
        const LabLineConfigRecord line = LabLineTable[mCurrentLineIndex];
        Text1[0].setText(line.Name);
        Text1[1].setText(QString::number(line.NameIndex));
        Text1[2].setText(QString::number(line.MsgIndex));
        return 0;
    };
    const auto report = [](const RuntimeError &error) {
        if (error.number() == errors::SubscriptOutOfRange)
            ShowMessage("There is no line configuration" + lineBreak + "data to display.");
        else
            ShowMessage(QStringList{"An unexpected error occurred while displaying",
                                    "the current line configuration data.",
                                    QStringLiteral("Error: %1").arg(error.number()), error.description()}
                            .join(lineBreak));
        return error.number();
    };
    guarded(display, report);
}

void frmLinesConfig::DisplayCurrentField()
{
    const LabLineFldCfgRecord field = LabLineFldTable[mCurrentFieldIndex];
    Text2[0].setText(field.Name);
    Text2[1].setText(QString::number(field.NameIndex));
    Combo2[0].setText(field.LineIndex < 0 ? field.Line
                                          : field.Line + QStringLiteral("(%1)").arg(field.LineIndex));
    Text2[2].setText(QString::number(field.MsgIndex));
    Combo2[1].setText(field.LookupString);
    Text2[3].setText(field.FormatString);
    Text2[4].setText(field.Constant);
    Text2[5].setText(QString::number(field.Position));
    if (field.FixedLength == 0) {
        ckFixedLength.setValue(0);
        return;
    }
    ckFixedLength.setValue(1);
    Text2[6].setText(QString::number(field.Length));
    Text2[7].setText(QString::number(field.FieldPosition));
    optAlign[field.PadDirection > 0 ? 0 : 1].choose();
    optPad[field.PadChar == " " ? 0 : 1].choose();
}

void frmLinesConfig::showPage()
{
    SetMousePointer(11);
    if (tsLines.currentPage() == LinesPage) {
        ckFixedLength.setTabStop(false);
        mCurrentTab = 1;
    } else {
        if (Combo2[0].text().isEmpty() && !Text1[0].text().isEmpty())
            Combo2[0].setSelectedIndex(FindListIndex(Combo2[0], trim(Text1[0].text()), true));
        ckFixedLength.setTabStop(true);
        mCurrentTab = 2;
        mChangesMade = false;
    }
    SetMousePointer(0);
}

} // namespace varnow
