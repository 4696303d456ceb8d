#include "model/removal.h"

#include "base/guarded.h"

namespace varnow {

namespace {

/// Whether a step raised no error.
template <class Step> bool succeeds(Step step)
{
    return guarded([&] { return step(), true; }, [](const RuntimeError &) { return false; });
}

} // namespace

LineRemoval removeLine(Model &model, const RecordKey &line)
{
    if (model.fields.countOfLine(line.configuration, line.name, line.nameIndex) > 0)
        return LineRemoval::HasFields;
    const int index = model.lines.find(line.configuration, line.name, line.nameIndex);
    if (index < 0)
        return LineRemoval::NotFound;
    model.lines.remove(index);
    if (!succeeds([&] { model.lines.renumber(line.configuration); }))
        return LineRemoval::RenumberingFailed;
    if (!succeeds([&] { model.copyMessageIndexesToFields(); }))
        return LineRemoval::CopyingMessageIndexesFailed;
    return LineRemoval::Done;
}

bool removeField(Model &model, const RecordKey &field)
{
    const int index = model.fields.find(field.configuration, field.name, field.nameIndex);
    if (index < 0 || field.configuration.isEmpty() || field.name.isEmpty())
        return false;
    model.fields.remove(index);
    return true;
}

} // namespace varnow
