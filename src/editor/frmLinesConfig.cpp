#include "editor/frmLinesConfig.h"

#include "base/text.h"
#include "display/frmTest.h"
#include "startup/modGlobals.h"
#include "util/modForms.h"
#include "util/modListTools.h"
#include "util/modTextBoxTools.h"

namespace varnow {

frmLinesConfig::frmLinesConfig() : ui::Window("frmLinesConfig", "Lines Configuration", 9735, 6285)
{
    connectControls();
    arrangeFocus();
    nameForScreenReaders();
}

frmLinesConfig::~frmLinesConfig() = default;

void frmLinesConfig::connectControls()
{
    const auto markChanged = [this] { mChangesMade = true; };
    const auto connectBox = [&](ui::TextBox &box) {
        box.onGotFocus = [&box] { SelectAllText(box); };
        box.onLostFocus = [&box] { box.setText(trim(box.text())); };
        box.onChange = markChanged;
    };
    for (ui::TextBox &box : Text1)
        connectBox(box);
    for (ui::TextBox &box : Text2)
        connectBox(box);
    for (ui::ComboBox &box : Combo2)
        box.onChange = box.onClick = markChanged;
    Combo2[0].onClick = [this] {
        mChangesMade = true;
        takeOverMessageIndex();
    };
    for (auto *options : {&optAlign, &optPad}) {
        for (ui::OptionButton &option : *options)
            option.onClick = markChanged;
    }
    ckFixedLength.onClick = [this] { setFixedLengthControls(); };
    cboConfig.onChange = cboConfig.onClick = [this] { switchConfiguration(); };
    tsLines.onClick = [this](int) { showPage(); };
    tvLines.onClick = [this] { showSelectedRecord(); };
    cmdClear.onClick = [this] { clearPage(); };
    cmdAdd.onClick = [this] { change(); };
    cmdDelete.onClick = [this] { removeShown(); };
    cmdRefresh.onClick = [this] { refresh(); };
    cmdReload.onClick = [this] { reload(); };
    cmdSave.onClick = [this] { save(); };
    cmdExit.onClick = [this] { unload(); };
    onLoad = [this] { loadWindow(); };
    onResize = [this] { layOut(); };
    onQueryUnload = [this](bool &cancel) { unloadWindow(cancel); };
    onDoubleClick = [this] { accessDataDisplay(); };
    setKey("F12", [this] { showDataDisplay(); }); // the way without a mouse
}

void frmLinesConfig::arrangeFocus()
{
    setFocusOrder({&cboConfig, &tsLines,     &Text1[0],    &Text1[1],  &Text1[2],  &Text2[0], &Text2[1],
                   &Combo2[0], &Text2[2],    &Combo2[1],   &Text2[3],  &Text2[4],  &Text2[5], &ckFixedLength,
                   &Text2[6],  &optAlign[0], &optAlign[1], &optPad[0], &optPad[1], &cmdAdd,   &cmdDelete,
                   &cmdSave,   &cmdClear,    &cmdRefresh,  &cmdReload, &cmdExit,   &tvLines,  &Text2[7]});
    ckFixedLength.setTabStop(false); // while the lines page is shown
}

void frmLinesConfig::nameForScreenReaders()
{
    cboConfig.setAccessibleName(Label3.caption());
    for (std::size_t i = 0; i < Text1.size(); ++i)
        Text1[i].setAccessibleName(Label1[i].caption());
    const std::array<ui::Control *, 10> labelled{&Text2[0], &Text2[1], &Combo2[0], &Text2[2], &Combo2[1],
                                                 &Text2[3], &Text2[4], &Text2[5],  &Text2[6], &Text2[7]};
    for (std::size_t i = 0; i < labelled.size(); ++i)
        labelled[i]->setAccessibleName(Label2[i].caption());
    tsLines.setAccessibleName("Entry pages");
    tvLines.setAccessibleName("Lines and fields");
}

void frmLinesConfig::loadWindow()
{
    mChangesMade = false;
    ClearLineEntry();
    ResetFieldEntry();
    loadStores({"continue, any current information will be lost."});
    fillConfigurationList();
    selectDefaultConfiguration();
    ckFixedLength.setValue(0);
    setFixedLengthControls();
    tsLines.setCurrentPage(LinesPage);
    showFirstNode();
    mChangesMade = false;
}

void frmLinesConfig::fillConfigurationList()
{
    cboConfig.setText("");
    cboConfig.clear();
    for (const QString &name : gConfigNames)
        cboConfig.addItem(trim(name));
}

void frmLinesConfig::setFixedLengthControls()
{
    if (ckFixedLength.value() != 2) {
        const bool isFixed = ckFixedLength.value() == 1;
        for (auto *options : {&optAlign, &optPad}) {
            for (ui::OptionButton &option : *options)
                option.setEnabled(isFixed);
        }
        Text2[6].setEnabled(isFixed);
    }
    mChangesMade = true;
}

void frmLinesConfig::ClearLineEntry()
{
    for (ui::TextBox &box : Text1)
        box.setText("");
}

void frmLinesConfig::ResetFieldEntry()
{
    for (ui::TextBox &box : Text2)
        box.setText("");
    for (ui::ComboBox &box : Combo2)
        box.setText("");
    if (Combo2[0].itemCount() > 0)
        Combo2[0].setSelectedIndex(0);
    ckFixedLength.setValue(1);
    optAlign[0].choose();
    optPad[0].choose();
    ckFixedLength.setValue(0);
}

void frmLinesConfig::unloadWindow(bool &cancel)
{
    PromptSaveChanges(cancel);
    if (!cancel)
        UnloadAllForms();
}

void frmLinesConfig::accessDataDisplay()
{
    if (DataDisplayArmed)
        showDataDisplay();
    DataDisplayArmed = !DataDisplayArmed;
}

void frmLinesConfig::showDataDisplay()
{
    if (!mDataDisplay)
        mDataDisplay = std::make_unique<frmTest>();
    mDataDisplay->show();
}

} // namespace varnow
