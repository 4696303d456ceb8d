#pragma once

#include "ui/Button.h"
#include "ui/Frame.h"
#include "ui/ListBox.h"
#include "ui/Window.h"

namespace varnow {

/// The data display: every line or field held in memory as plain text. Sizes in twips.
class frmTest : public ui::Window
{
public:
    frmTest();

private:
    void listLines();
    void listFields();
    void layOut();

    ui::Panel SSPanel1{*this, "SSPanel1", {120, 120, 4815, 2835}};
    ui::ListBox List1{SSPanel1, "List1", {120, 120, 4575, 2595}};
    ui::CommandButton cmdLines{*this, "cmdLines", "&Lines", {0, 0, 1515, 705}};
    ui::CommandButton cmdFields{*this, "cmdFields", "&Fields", {0, 0, 1515, 705}};
    ui::CommandButton cmdExit{*this, "cmdExit", "E&xit", {0, 0, 1515, 705}};
};

} // namespace varnow
