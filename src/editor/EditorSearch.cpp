// The part of the editor that finds records by what they hold.

#include "editor/EditorWindow.h"

#include "base/text.h"
#include "model/search.h"

#include <algorithm>

namespace varnow {

void EditorWindow::connectSearch()
{
    m_findBar.onChange = [this] { find(); };
    m_findBar.onNext = [this] { showMatch(1); };
    m_findBar.onPrevious = [this] { showMatch(-1); };
}

/// Looks for the text and counts; no match is shown yet.
std::vector<RecordReference> EditorWindow::find()
{
    std::vector<RecordReference> found =
        search(m_state.model, trim(m_state.configuration()), m_findBar.text());
    m_shownMatch = -1;
    m_findBar.setCount(m_findBar.text().isEmpty() ? QString() : QStringLiteral("%1 found").arg(found.size()));
    return found;
}

/// Shows the next match, or, with -1, the one before; behind the last comes the first.
void EditorWindow::showMatch(int step)
{
    if (m_findBar.text().isEmpty())
        return m_findBar.open();
    const int before = m_shownMatch;
    const std::vector<RecordReference> found = find(); // records may have changed
    if (found.empty())
        return;
    const auto count = static_cast<int>(found.size());
    m_shownMatch = before < 0 ? (step > 0 ? 0 : count - 1) : (std::min(before, count) + step + count) % count;
    showRecordOf(found[static_cast<std::size_t>(m_shownMatch)]);
    m_findBar.setCount(QStringLiteral("%1 of %2").arg(m_shownMatch + 1).arg(count));
}

} // namespace varnow
