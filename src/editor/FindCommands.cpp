#include "editor/FindCommands.h"

#include <algorithm>

namespace varnow {

namespace {

/// Where in the list the search goes on: the index of the match that is shown, or else of the first one
/// behind it. `before` are the matches as they were when it was shown, for it may be none any more.
struct Spot
{
    int index = -1; ///< -1 where the list says nothing about it
    bool isMatch = false;
};

Spot spotOf(const RecordReference &shown, const std::vector<RecordReference> &matches,
            const std::vector<RecordReference> &before)
{
    const auto indexIn = [](const std::vector<RecordReference> &list, const RecordReference &record) {
        const auto found = std::ranges::find(list, record);
        return found == list.end() ? -1 : static_cast<int>(found - list.begin());
    };
    if (const int index = indexIn(matches, shown); index >= 0)
        return {index, true};
    const int old = indexIn(before, shown);
    for (std::size_t i = old < 0 ? before.size() : static_cast<std::size_t>(old); i < before.size(); ++i) {
        if (const int index = indexIn(matches, before[i]); index >= 0)
            return {index, false};
    }
    return {old < 0 ? -1 : static_cast<int>(matches.size()), false};
}

} // namespace

FindCommands::FindCommands(ui::Window &window, const Document &document) : m_document(document), m_bar(window)
{
    m_bar.onChange = [this] {
        m_before.clear();
        find();
    };
    m_bar.onNext = [this] { showNext(); };
    m_bar.onPrevious = [this] { showPrevious(); };
    const auto recount = [this] {
        if (m_bar.isOpen())
            find();
    };
    QObject::connect(&document, &Document::changed, &document, recount);
    QObject::connect(&document, &Document::configurationChanged, &document, recount);
}

/// Looks for the text and counts; no match is shown yet.
std::vector<RecordReference> FindCommands::find()
{
    std::vector<RecordReference> found = search(m_document.model(), m_document.configuration(), m_bar.text());
    m_bar.setCount(m_bar.text().isEmpty() ? QString() : QStringLiteral("%1 found").arg(found.size()));
    return found;
}

/// Shows the next match behind the record that is selected, or, with -1, the one before; behind the last
/// comes the first.
void FindCommands::showMatch(int step)
{
    if (m_bar.text().isEmpty())
        return m_bar.open();
    const std::vector<RecordReference> found = find();
    if (found.empty())
        return;
    const auto count = static_cast<int>(found.size());
    const std::optional<RecordReference> selected = selectedRecord();
    const Spot spot = selected ? spotOf(*selected, found, m_before) : Spot();
    int next = step > 0 ? 0 : count - 1;
    if (spot.index >= 0)
        next = (spot.index + (step > 0 && !spot.isMatch ? 0 : step) + count) % count;
    m_before = found;
    onShow(found[static_cast<std::size_t>(next)]);
    m_bar.setCount(QStringLiteral("%1 of %2").arg(next + 1).arg(count));
}

} // namespace varnow
