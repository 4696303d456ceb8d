#pragma once

#include "model/Field.h"
#include "model/Line.h"
#include "model/LineChoice.h"

#include <QStringList>

#include <optional>
#include <vector>

// Records as they are entered, on a page or in a file, before their texts are known to be right.

namespace varnow {

/// What was entered for a record: a text for each of its columns that was given.
template <class Record> class Draft
{
public:
    void set(std::size_t columnNumber, const QString &text) { m_texts[columnNumber] = text; }
    template <class Value> void set(Value Record::*member, const QString &text)
    {
        set(columnNumber(member), text);
    }

    /// Takes back the text of a column.
    template <class Value> void clear(Value Record::*member) { m_texts[columnNumber(member)].reset(); }

    const std::optional<QString> &given(std::size_t columnNumber) const { return m_texts[columnNumber]; }
    template <class Value> bool has(Value Record::*member) const
    {
        return given(columnNumber(member)).has_value();
    }

    /// The text of a column, empty where none was given.
    template <class Value> QString text(Value Record::*member) const
    {
        return given(columnNumber(member)).value_or(QString());
    }

private:
    std::vector<std::optional<QString>> m_texts{Record::columns().size()};
};

using LineDraft = Draft<Line>;

struct FieldDraft : Draft<Field>
{
    bool isLineUnclosed = false; ///< the line was written with "(" but without ")" behind it

    /// Gives the columns of the field's line.
    void setLine(const LineChoice &line);
};

/// The record that a draft makes, and everything that is wrong with the draft, in the words that the user
/// reads. The record counts only where nothing is wrong.
template <class Record> struct Parsed
{
    Record record;
    QStringList problems;
};

/// Each is the one way from texts to a record, from a page and from a file. Columns that were not given get
/// the values of a new record.
Parsed<Line> parse(const LineDraft &draft);
Parsed<Field> parse(const FieldDraft &draft);

/// The text of a number that may be left blank, as a name index may: blank is 0.
QString zeroIfBlank(const QString &text);

/// The name index that a text stands for. Raises errors::TypeMismatch and errors::Overflow for what is no
/// 32-bit number.
int parseIndex(const QString &text);

} // namespace varnow
