#pragma once

#include "startup/loginState.h"
#include "ui/Button.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/TextBox.h"
#include "ui/Window.h"

#include <array>

namespace varnow {

/// The modal dialog that asks for the connection values of one database. Sizes in twips.
class frmDatabaseInfo : public ui::Window, public LoginState
{
public:
    frmDatabaseInfo();

private:
    void loadWindow();
    void fillDevelopmentValues();
    void leave(bool canceled);
    void queryUnload(bool &cancel);
    bool AcceptLogin();
    void requireEntry(std::size_t entry, const QString &complaint);
    void storeEntries();

    ui::Panel SSPanel1{*this, "SSPanel1", {112, 120, 3525, 3045}};
    std::array<ui::Label, 4> Label1{{
        {SSPanel1, "Label1(0)", "Database Server:", {135, 105, 3255, 225}},
        {SSPanel1, "Label1(1)", "Username:", {135, 1545, 3255, 225}},
        {SSPanel1, "Label1(2)", "Database:", {135, 825, 3255, 225}},
        {SSPanel1, "Label1(3)", "Password:", {135, 2265, 3255, 225}},
    }};
    std::array<ui::TextBox, 4> Text1{{
        {SSPanel1, "Text1(0)", {135, 345, 3255, 285}},
        {SSPanel1, "Text1(1)", {135, 1065, 3255, 285}},
        {SSPanel1, "Text1(2)", {135, 1785, 3255, 285}},
        {SSPanel1, "Text1(3)", {135, 2505, 3255, 285}},
    }};
    ui::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel", {112, 3277, 1515, 765}};
    ui::CommandButton cmdLogin{*this, "cmdLogin", "&Login", {2122, 3277, 1515, 765}};
};

} // namespace varnow
