#include "model/Model.h"

#include <algorithm>

namespace varnow {

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

ChangeCounts Model::countUnsaved() const
{
    ChangeCounts counts;
    for (const auto &entry : lines.unsaved().entries())
        counts.add(entry.kind());
    for (const auto &entry : fields.unsaved().entries())
        counts.add(entry.kind());
    return counts;
}

} // namespace varnow
