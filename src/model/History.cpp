#include "model/History.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace varnow {

namespace {

/// Moves the last step from one list to another one, as a step of this kind.
EditStep &moveLast(std::list<EditStep> &from, std::list<EditStep> &to, StepKind kind)
{
    to.splice(to.end(), from, std::prev(from.end()));
    to.back().kind = kind;
    return to.back();
}

} // namespace

const EditStep &History::add(EditStep step)
{
    m_undone.clear();
    return m_done.emplace_back(std::move(step));
}

const EditStep *History::undo(Model &model)
{
    if (m_done.empty())
        return nullptr;
    EditStep &step = moveLast(m_done, m_undone, StepKind::Undone);
    const auto undoAll = [](auto &changes, auto &table) {
        std::for_each(changes.rbegin(), changes.rend(), [&table](auto &change) { table.undo(change); });
    };
    undoAll(step.fields, model.fields);
    undoAll(step.lines, model.lines);
    return &step;
}

const EditStep *History::redo(Model &model)
{
    if (m_undone.empty())
        return nullptr;
    const EditStep &step = moveLast(m_undone, m_done, StepKind::Redone);
    for (const Change<Line> &change : step.lines)
        model.lines.redo(change);
    for (const Change<Field> &change : step.fields)
        model.fields.redo(change);
    return &step;
}

void History::clear()
{
    m_done.clear();
    m_undone.clear();
}

} // namespace varnow
