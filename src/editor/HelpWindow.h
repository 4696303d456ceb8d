#pragma once

#include "ui/Button.h"
#include "ui/DocumentView.h"
#include "ui/Table.h"
#include "ui/Window.h"

namespace varnow {

/// The guide, with its headings to choose from. Sizes in twips.
class HelpWindow : public ui::Window
{
public:
    HelpWindow();

private:
    void layOut();
    void showGuide();

    ui::Table m_headings{*this, "headings", {"Contents"}, {120, 120, 3600, 6000}};
    ui::DocumentView m_guide{*this, "guide", {3840, 120, 9540, 6000}};
    ui::CommandButton m_close{*this, "close", "Close", {0, 0, 1515, 600}};
};

} // namespace varnow
