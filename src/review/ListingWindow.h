#pragma once

#include "model/Model.h"
#include "ui/Button.h"
#include "ui/Frame.h"
#include "ui/ListBox.h"
#include "ui/Window.h"

namespace varnow {

/// The data display: every line or field held in memory as plain text. Sizes in twips.
class ListingWindow : public ui::Window
{
public:
    explicit ListingWindow(const Model &model);

private:
    void layOut();

    ui::Panel m_panel{*this, "panel", {120, 120, 4815, 2835}};
    ui::ListBox m_list{m_panel, "list", {120, 120, 4575, 2595}};
    ui::CommandButton m_lines{*this, "lines", "&Lines", {0, 0, 1515, 705}};
    ui::CommandButton m_fields{*this, "fields", "&Fields", {0, 0, 1515, 705}};
    ui::CommandButton m_exit{*this, "exit", "E&xit", {0, 0, 1515, 705}};
};

} // namespace varnow
