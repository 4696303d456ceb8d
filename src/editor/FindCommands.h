#pragma once

#include "document/Document.h"
#include "model/search.h"
#include "ui/FindBar.h"

#include <functional>
#include <optional>
#include <vector>

namespace varnow {

/// Finds records of the configuration by what they hold. The count follows every change.
class FindCommands
{
public:
    FindCommands(ui::Window &window, const Document &document);

    /// A match is to be shown.
    std::function<void(const RecordReference &record)> onShow;
    /// The record from which the search goes on, if there is one.
    std::function<std::optional<RecordReference>()> selectedRecord;

    void open() { m_bar.open(); }
    void showNext() { showMatch(1); }
    void showPrevious() { showMatch(-1); }

private:
    std::vector<RecordReference> find();
    void showMatch(int step);

    const Document &m_document;
    ui::FindBar m_bar;
    std::vector<RecordReference> m_before; // the matches when one was shown last
};

} // namespace varnow
