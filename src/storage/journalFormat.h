#pragma once

#include "db/ConnectionSettings.h"
#include "storage/LeftChanges.h"

#include <QByteArray>

#include <utility>
#include <variant>

// A journal is a text file. Each line is a checksum, a blank and a JSON object. The first line tells version,
// database, time and columns; each further one what became of one record, or the time. Of several lines with
// one key the last one counts. Cells without a value are left out.

namespace varnow {

/// What a line of the journal is about.
enum class JournalKind {
    Line,
    Field,
    LineConflict,  ///< a change of an earlier run that is still not decided
    FieldConflict, ///< the same of a field
    Draft,
};

/// Tells the lines of the journal apart: the record's key, the page's name or the conflict's number.
struct JournalKey
{
    JournalKind kind;
    RecordKey key;

    bool operator==(const JournalKey &) const = default;
};

inline std::size_t qHash(const JournalKey &key, std::size_t seed = 0)
{
    return qHashMulti(seed, static_cast<int>(key.kind), key.key);
}

/// What became of a record or a page.
struct JournalEntry
{
    /// Stands for a record that is as its row again, and for a page without a draft.
    using Settled = std::monostate;

    JournalKey key;
    std::variant<Settled, UnsavedChange<Line>, UnsavedChange<Field>, PageDraft> state = {};

    bool isSettled() const { return std::holds_alternative<Settled>(state); }
};

/// The first line of a journal.
QByteArray encodeHeader(const db::ConnectionSettings &database);
/// A line that tells the time.
QByteArray encodeTime();
/// A line that tells what became of a record or page.
QByteArray encode(const JournalEntry &entry);

/// Reads a journal. Damaged parts are passed over and counted; an unfinished line at the end is not. Raises a
/// RuntimeError with the reason when nothing is readable, or when a newer version wrote it.
LeftChanges readJournal(const QByteArray &contents);

/// Reads a file of the first format, one JSON object. Raises a RuntimeError with the reason.
LeftChanges readFirstFormat(const QByteArray &contents);

} // namespace varnow
