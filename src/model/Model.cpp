#include "model/Model.h"

#include "base/text.h"

#include <algorithm>

namespace varnow {

void Model::copyMessageIndexesToFields()
{
    const Field *before = nullptr; // mostly of the same line, in texts that both share
    const Line *line = nullptr;
    const auto isSame = [](const QString &a, const QString &b) {
        return (a.constData() == b.constData() && a.size() == b.size()) || a == b;
    };
    const auto indexOf = [&](const Field &field) -> std::optional<int> {
        const auto owns = [&](const Line &candidate) {
            return candidate.nameIndex == field.lineIndex && candidate.name == field.line &&
                   candidate.configuration == field.configuration;
        };
        if (before == nullptr || field.lineIndex != before->lineIndex || !isSame(field.line, before->line) ||
            !isSame(field.configuration, before->configuration))
            line = lines.lookUp(field.configuration, field.line, field.lineIndex, owns);
        before = &field;
        return line != nullptr ? std::optional(line->messageIndex) : std::nullopt;
    };
    const auto lineStates = lines.states();
    const auto fieldStates = fields.states();
    fields.changeMessageIndexes(indexOf, [&](const QString &configuration) {
        const QString name = trim(configuration);
        return m_lineStates.value(name) != lineStates.value(name) ||
               m_fieldStates.value(name) != fieldStates.value(name);
    });
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
