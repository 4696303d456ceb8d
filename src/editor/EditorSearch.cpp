// The part of the editor that finds records by what they hold.

#include "editor/EditorWindow.h"

#include "base/text.h"
#include "model/search.h"

#include <algorithm>

namespace varnow {

namespace {

RecordName treeNameOf(const RecordReference &record)
{
    const bool isLine = record.kind == RecordKind::Line;
    return {isLine ? RecordName::Kind::Line : RecordName::Kind::Field, record.key.name, record.key.nameIndex};
}

} // namespace

/// Looks for the text anew and counts; no record is shown yet.
void EditorWindow::find()
{
    m_found = search(m_state.model, trim(m_state.configuration()), m_findBar.text());
    m_shownMatch = -1;
    m_findBar.setCount(m_findBar.text().isEmpty() ? QString()
                                                  : QStringLiteral("%1 found").arg(m_found.size()));
}

/// Shows the next match, or, with -1, the one before; behind the last comes the first.
void EditorWindow::showMatch(int step)
{
    const int before = m_shownMatch;
    find(); // records may have changed
    if (m_found.empty())
        return;
    const auto count = static_cast<int>(m_found.size());
    m_shownMatch = before < 0 ? (step > 0 ? 0 : count - 1) : (std::min(before, count) + step + count) % count;
    const RecordName record = treeNameOf(m_found[static_cast<std::size_t>(m_shownMatch)]);
    tellReplaced(replacing([&] { showNode(record); }));
    m_findBar.setCount(QStringLiteral("%1 of %2").arg(m_shownMatch + 1).arg(count));
}

} // namespace varnow
