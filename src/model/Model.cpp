#include "model/Model.h"

namespace varnow {

void Model::copyMessageIndexesToFields()
{
    const Line *line = nullptr; // mostly that of the field before
    fields.changeEach([&](Field &field) {
        const auto owns = [&](const Line &candidate) {
            return candidate.nameIndex == field.lineIndex && candidate.name == field.line &&
                   candidate.configuration == field.configuration;
        };
        if (line == nullptr || !owns(*line)) {
            const int index = lines.RecordTable::find(field.configuration, field.line, field.lineIndex, owns);
            line = index < 0 ? nullptr : &lines[index];
        }
        if (line != nullptr)
            field.messageIndex = line->messageIndex;
    });
}

} // namespace varnow
