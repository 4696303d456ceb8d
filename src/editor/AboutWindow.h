#pragma once

#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/Window.h"

namespace varnow {

/// Tells the version of the program and of what it stands on, and copies that for a report. Sizes in twips.
class AboutWindow : public ui::Window
{
public:
    AboutWindow();

private:
    ui::ListBox m_versions{*this, "versions", {120, 120, 7260, 1700}};
    ui::Label m_copied{*this, "copied", "", {120, 2125, 3800, 195}};
    ui::CommandButton m_copy{*this, "copy", "&Copy", {3980, 1970, 1700, 500}};
    ui::CommandButton m_close{*this, "close", "Close", {5680, 1970, 1700, 500}};
};

} // namespace varnow
