#pragma once

#include "ui/DocumentView.h"
#include "ui/ListWindow.h"
#include "ui/Table.h"

namespace varnow {

/// The guide, with its headings to choose from.
class HelpWindow : public ui::ListWindow
{
public:
    HelpWindow();

private:
    void showGuide();

    ui::Table m_headings{*this, "headings", {"Contents"}};
    ui::DocumentView m_guide{*this, "guide"};
};

} // namespace varnow
