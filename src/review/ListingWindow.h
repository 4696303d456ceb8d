#pragma once

#include "document/Document.h"
#include "model/RecordReference.h"
#include "ui/Button.h"
#include "ui/Frame.h"
#include "ui/ListBox.h"
#include "ui/Window.h"

#include <optional>

namespace varnow {

/// The data display: every line or field held in memory as plain text. Sizes in twips.
class ListingWindow : public ui::Window
{
public:
    /// The document must outlive the window.
    explicit ListingWindow(const Document &document);

private:
    void layOut();
    void list(RecordKind kind, bool tellsFailure);

    const Document &m_document;
    std::optional<RecordKind> m_listed;

    ui::Panel m_panel{*this, "panel", {120, 120, 4815, 2835}};
    ui::ListBox m_list{m_panel, "list", {120, 120, 4575, 2595}};
    ui::CommandButton m_lines{*this, "lines", "&Lines", {0, 0, 1515, 705}};
    ui::CommandButton m_fields{*this, "fields", "&Fields", {0, 0, 1515, 705}};
    ui::CommandButton m_exit{*this, "exit", "E&xit", {0, 0, 1515, 705}};
};

} // namespace varnow
