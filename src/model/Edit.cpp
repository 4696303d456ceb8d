#include "model/Edit.h"

#include "model/RecordReference.h"

#include <utility>

namespace varnow {

namespace {

template <class Record> QString textOf(const Change<Record> &change, const QString &kind)
{
    const QString name = kind + ' ' + nameOf(change.was ? *change.was : *change.is);
    return (!change.was ? "addition of " : !change.is ? "removal of " : "change of ") + name;
}

template <class Table, class Change> void revertIn(Table &table, const Change &change)
{
    const auto &record = change.record();
    int index = table.find(record.configuration, record.name, record.nameIndex);
    if (index >= 0 && (!change.before || change.isAddedAnew)) {
        table.remove(index);
        index = -1;
    }
    if (!change.before)
        return;
    if (index >= 0)
        table.restore(index, *change.before);
    else
        table.bringBack(*change.before);
}

template <class Table, class Change> void reapplyIn(Table &table, const Change &change)
{
    auto record = change.record();
    const int index = table.find(record.configuration, record.name, record.nameIndex);
    record.id = -1;
    if (change.now)
        table.store(std::move(record));
    else if (index >= 0)
        table.remove(index);
}

} // namespace

QString EditStep::text() const
{
    if (!label.what.isEmpty())
        return label.what;
    return lines.empty() ? textOf(fields.front(), QStringLiteral("field"))
                         : textOf(lines.front(), QStringLiteral("line"));
}

Edit::Edit(Model &model, const EditLabel &label) : lines(model.lines), fields(model.fields), m_model(model)
{
    m_step.label = label;
    lines.recordTo(&m_step.lines);
    fields.recordTo(&m_step.fields);
}

Edit::~Edit()
{
    finish();
}

void Edit::revert(const UnsavedChange<Line> &change)
{
    revertIn(lines, change);
}

void Edit::revert(const UnsavedChange<Field> &change)
{
    revertIn(fields, change);
}

void Edit::reapply(const UnsavedChange<Line> &change)
{
    reapplyIn(lines, change);
}

void Edit::reapply(const UnsavedChange<Field> &change)
{
    reapplyIn(fields, change);
}

EditStep Edit::finish()
{
    lines.recordTo(nullptr);
    fields.recordTo(nullptr);
    return std::exchange(m_step, {});
}

} // namespace varnow
