#pragma once

#include "model/Field.h"
#include "model/LineTable.h"

// Which fields belong to which line.

namespace varnow {

/// The key of the line that a field belongs to.
inline RecordKey lineKeyOf(const Field &field)
{
    return {field.configuration, field.line, field.lineIndex};
}

inline bool belongsTo(const Field &field, const Line &line)
{
    return field.lineIndex == line.nameIndex && field.line == line.name &&
           field.configuration == line.configuration;
}

inline bool belongsTo(const Field &field, const RecordKey &line)
{
    return field.lineIndex == line.nameIndex && field.line == line.name &&
           field.configuration == line.configuration;
}

/// Finds the lines of fields. Fields that are asked for one after the other mostly belong to the same line;
/// then nothing is looked up.
class LineFinder
{
public:
    explicit LineFinder(const LineTable &lines) : m_lines(lines) {}

    /// The line that a field of a table belongs to; null when there is none. The field must stay where it is
    /// until the next one is asked for.
    const Line *lineOf(const Field &field)
    {
        if (m_before == nullptr || field.lineIndex != m_before->lineIndex ||
            !isSame(field.line, m_before->line) || !isSame(field.configuration, m_before->configuration))
            m_line = m_lines.lookUp(field.configuration, field.line, field.lineIndex);
        m_before = &field;
        return m_line;
    }

private:
    /// Texts that share their characters are not compared.
    static bool isSame(const QString &a, const QString &b)
    {
        return (a.constData() == b.constData() && a.size() == b.size()) || a == b;
    }

    const LineTable &m_lines;
    const Field *m_before = nullptr;
    const Line *m_line = nullptr; // that of the field before
};

} // namespace varnow
