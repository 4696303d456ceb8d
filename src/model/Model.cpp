#include "model/Model.h"

#include <algorithm>

namespace varnow {

namespace {

template <class Record> QString textOf(const Change<Record> &change, const QString &kind)
{
    const Record &record = change.was ? *change.was : *change.is;
    QString name = kind + ' ' + record.name;
    if (record.nameIndex > 0)
        name += QStringLiteral("(%1)").arg(record.nameIndex);
    return (!change.was ? "addition of " : !change.is ? "removal of " : "change of ") + name;
}

template <class Table, class Entry> void revert(Table &table, const Entry &entry)
{
    const auto &record = entry.record();
    int index = table.find(record.configuration, record.name, record.nameIndex);
    if (index >= 0 && (!entry.before || entry.isAddedAnew)) {
        table.remove(index);
        index = -1;
    }
    if (!entry.before)
        return;
    if (index >= 0)
        table.restore(index, *entry.before);
    else
        table.bringBack(*entry.before);
}

template <class Table, class Entry> void reapply(Table &table, const Entry &entry)
{
    auto record = entry.record();
    const int index = table.find(record.configuration, record.name, record.nameIndex);
    record.id = -1;
    if (entry.now)
        table.store(std::move(record));
    else if (index >= 0)
        table.remove(index);
}

} // namespace

QString textOf(const EditStep &step)
{
    if (!step.what.isEmpty())
        return step.what;
    return step.lines.empty() ? textOf(step.fields.front(), QStringLiteral("field"))
                              : textOf(step.lines.front(), QStringLiteral("line"));
}

void Model::copyMessageIndexesToFields()
{
    const auto lineStates = lines.states();
    const auto fieldStates = fields.states();
    const auto isChanged = [&](const QString &configuration) {
        return m_lineStates.value(configuration) != lineStates.value(configuration) ||
               m_fieldStates.value(configuration) != fieldStates.value(configuration);
    };
    fields.copyMessageIndexes(lines, {isChanged});
    m_lineStates = lineStates;
    m_fieldStates = fields.states();
}

void Model::revert(const UnsavedChange<Line> &entry)
{
    varnow::revert(lines, entry);
}

void Model::revert(const UnsavedChange<Field> &entry)
{
    varnow::revert(fields, entry);
}

void Model::reapply(const UnsavedChange<Line> &entry)
{
    varnow::reapply(lines, entry);
}

void Model::reapply(const UnsavedChange<Field> &entry)
{
    varnow::reapply(fields, entry);
}

ChangeCounts Model::countUnsaved() const
{
    ChangeCounts counts;
    for (const auto &entry : lines.unsaved.entries())
        counts.add(entry.kind());
    for (const auto &entry : fields.unsaved.entries())
        counts.add(entry.kind());
    return counts;
}

const EditStep &Model::undo()
{
    m_undone.push_back(std::move(m_done.back()));
    m_done.pop_back();
    EditStep &step = m_undone.back();
    const auto undoAll = [](auto &changes, auto &table) {
        std::for_each(changes.rbegin(), changes.rend(), [&table](auto &change) { table.undo(change); });
    };
    undoAll(step.fields, fields);
    undoAll(step.lines, lines);
    return step;
}

const EditStep &Model::redo()
{
    m_done.push_back(std::move(m_undone.back()));
    m_undone.pop_back();
    const EditStep &step = m_done.back();
    for (const Change<Line> &change : step.lines)
        lines.redo(change);
    for (const Change<Field> &change : step.fields)
        fields.redo(change);
    return step;
}

void Model::forgetHistory()
{
    m_done.clear();
    m_undone.clear();
}

Editing::Editing(Model &model, const QString &what) : m_model(model)
{
    m_step.what = what;
    model.lines.recordTo(&m_step.lines);
    model.fields.recordTo(&m_step.fields);
}

Editing::~Editing()
{
    m_model.lines.recordTo(nullptr);
    m_model.fields.recordTo(nullptr);
    if (m_step.isEmpty())
        return;
    m_model.m_done.push_back(std::move(m_step));
    m_model.m_undone.clear();
}

} // namespace varnow
