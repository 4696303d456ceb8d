#pragma once

#include "db/ConfigADOUtilities.h"
#include "fields/modLabLineFldCfg.h"
#include "lines/modLabLineCfg.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/TabControl.h"
#include "ui/TextBox.h"
#include "ui/TreeView.h"
#include "ui/Window.h"

#include <QString>

#include <array>
#include <memory>
#include <vector>

namespace varnow {

class frmTest;
struct LineChoice;

/// The main window: the lines and fields of one configuration as a tree, and the two pages to enter them.
/// All coordinates and sizes in twips.
class frmLinesConfig : public ui::Window
{
public:
    frmLinesConfig();
    ~frmLinesConfig() override;

    /// Refills the lines to choose from and, from the database, the data field names.
    void LoadComboBoxes();
    /// Shows the line at mCurrentLineIndex, or the first line of the configuration.
    void DisplayCurrentLine();
    /// Fills the tree anew with the lines and fields of the configuration.
    void RebuildTree();

private:
    enum Page { LinesPage = 0, FieldsPage = 1 };

    // Window: load, handlers, unload.
    void connectControls();
    void arrangeFocus();
    void nameForScreenReaders();
    void loadWindow();
    void fillConfigurationList();
    void setFixedLengthControls();
    void ClearLineEntry();
    void ResetFieldEntry();
    void unloadWindow(bool &cancel);
    void accessDataDisplay();
    void showDataDisplay();

    // Layout.
    void layOut();
    void layOutLinesPage();
    void layOutFieldsPage();

    // Configuration: switching, lists, refresh, reload, save.
    void switchConfiguration();
    void selectDefaultConfiguration();
    void showFirstNode();
    void LoadLineChoices();
    void LoadDataFieldList();
    bool openDataFields(db::ConnectionPtr &connection, db::RecordsetPtr &recordset);
    void listDataFields(db::Recordset &recordset);
    void takeOverMessageIndex();
    void loadStores(const QStringList &warning);
    void refresh();
    void reload();
    void save();
    void PromptSaveChanges(bool &Cancel);

    // Tree.
    void ClearTree();
    void AddLineNode(const LabLineConfigRecord &line);
    void AddFieldNode(const LabLineFldCfgRecord &field);
    void offerToUpdateNode(int node, const QString &text, const LabLineConfigRecord &line);
    void showSelectedRecord();
    void showLine(const QString &name, int nameIndex);
    void showField(const QString &name, int nameIndex);
    void DisplayCurrentField();
    void showPage();

    // Entry.
    void change();
    bool enterLine();
    bool enterField();
    bool checkField(const LineChoice &line);
    void bringIntoView(const QString &nodeKey);

    // Removal and clearing.
    void removeShown();
    bool removeLine();
    bool removeField();
    void CountFieldsForLine(const QString &Configuration, const QString &LineName, int NameIndex, int &Count);
    void clearPage();
    void proposePosition();

    ui::Label Label3{*this, "Label3", "Configuration", {0, 0, 930, 195}};
    ui::ComboBox cboConfig{*this, "cboConfig", {0, 0, 1245, 315}};
    ui::TabControl tsLines{*this, "tsLines", {"&Lines", "Line &Fields"}, {120, 555, 9495, 2500}};

    ui::Container &linesPage = tsLines.page(LinesPage);
    std::array<ui::Label, 3> Label1{{
        {linesPage, "Label1(0)", "Name", {0, 0, 420, 195}},
        {linesPage, "Label1(1)", "Index", {0, 0, 390, 195}},
        {linesPage, "Label1(2)", "Message Index", {0, 0, 1080, 195}},
    }};
    std::array<ui::TextBox, 3> Text1{{
        {linesPage, "Text1(0)", {0, 0, 1245, 315}},
        {linesPage, "Text1(1)", {0, 0, 500, 315}},
        {linesPage, "Text1(2)", {0, 0, 500, 315}},
    }};

    ui::Container &fieldsPage = tsLines.page(FieldsPage);
    ui::Frame fraFixedField{fieldsPage, "fraFixedField", "", {0, 0, 2145, 2025}};
    ui::CheckBox ckFixedLength{fraFixedField, "ckFixedLength", "Fixed Length Field", {60, 120, 2025, 285}};
    ui::Frame fraAlign{fraFixedField, "fraAlign", "Align", {60, 1110, 1000, 855}};
    ui::Frame fraPad{fraFixedField, "fraPad", "Padding", {1085, 1110, 1000, 855}};
    std::array<ui::Label, 10> Label2{{
        {fieldsPage, "Label2(0)", "Field Name", {0, 0, 1080, 195}},
        {fieldsPage, "Label2(1)", "Index", {0, 0, 1080, 195}},
        {fieldsPage, "Label2(2)", "Line (Index)", {0, 0, 1080, 195}},
        {fieldsPage, "Label2(3)", "Message Index", {0, 0, 1080, 195}},
        {fieldsPage, "Label2(4)", "Lookup", {0, 0, 630, 195}},
        {fieldsPage, "Label2(5)", "Format", {0, 0, 630, 195}},
        {fieldsPage, "Label2(6)", "Constant", {0, 0, 630, 195}},
        {fieldsPage, "Label2(7)", "Position", {0, 0, 630, 195}},
        {fraFixedField, "Label2(8)", "Length", {60, 830, 495, 195}},
        {fraFixedField, "Label2(9)", "Character Position", {60, 490, 1290, 195}},
    }};
    std::array<ui::TextBox, 8> Text2{{
        {fieldsPage, "Text2(0)", {0, 0, 1605, 315}},
        {fieldsPage, "Text2(1)", {0, 0, 1605, 315}},
        {fieldsPage, "Text2(2)", {0, 0, 1605, 315}},
        {fieldsPage, "Text2(3)", {0, 0, 1605, 315}},
        {fieldsPage, "Text2(4)", {0, 0, 1605, 315}},
        {fieldsPage, "Text2(5)", {0, 0, 1605, 315}},
        {fraFixedField, "Text2(6)", {1410, 770, 675, 315}},
        {fraFixedField, "Text2(7)", {1410, 430, 675, 315}},
    }};
    std::array<ui::ComboBox, 2> Combo2{{
        {fieldsPage, "Combo2(0)", {0, 0, 1605, 315}},
        {fieldsPage, "Combo2(1)", {0, 0, 1605, 315}},
    }};
    std::array<ui::OptionButton, 2> optAlign{{
        {fraAlign, "optAlign(0)", "Right", {60, 255, 850, 225}},
        {fraAlign, "optAlign(1)", "Left", {60, 540, 850, 225}},
    }};
    std::array<ui::OptionButton, 2> optPad{{
        {fraPad, "optPad(0)", "Spaces", {60, 255, 850, 225}},
        {fraPad, "optPad(1)", "Zeros", {60, 540, 850, 225}},
    }};

    ui::TreeView tvLines{*this, "tvLines", {120, 3000, 9495, 1500}};
    ui::CommandButton cmdClear{*this, "cmdClear", "&Clear", {0, 0, 1515, 765}};
    ui::CommandButton cmdAdd{*this, "cmdAdd", "C&hange", {0, 0, 1515, 765}};
    ui::CommandButton cmdDelete{*this, "cmdDelete", "&Delete", {0, 0, 1515, 765}};
    ui::CommandButton cmdRefresh{*this, "cmdRefresh", "R&efresh", {0, 0, 1515, 765}};
    ui::CommandButton cmdReload{*this, "cmdReload", "&Reload", {0, 0, 1515, 765}};
    ui::CommandButton cmdSave{*this, "cmdSave", "&Save", {0, 0, 1515, 765}};
    ui::CommandButton cmdExit{*this, "cmdExit", "E&xit", {0, 0, 1515, 765}};

    bool mChangesMade = false;     // memory holds changes that are not saved
    qint16 mCurrentTab = 0;        // page shown last: 1 lines, 2 line fields
    int mCurrentLineIndex = 0;     // into LabLineTable
    int mCurrentFieldIndex = 0;    // into LabLineFldTable
    bool DataDisplayArmed = false; // the next double-click opens the data display

    /// The record that a tree node stands for; the node's text cannot tell when a name holds parentheses.
    struct NodeRecord
    {
        QString Name;
        int NameIndex;
    };
    std::vector<NodeRecord> mNodeRecords; // by node

    /// The line nodes in the order of adding, each with the greatest message index so far.
    struct LineNode
    {
        int node;
        int greatestMsgIndex;
    };
    std::vector<LineNode> mLineNodes;

    std::unique_ptr<frmTest> mDataDisplay;
};

} // namespace varnow
