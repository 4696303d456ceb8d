#pragma once

#include "storage/journalFormat.h"

#include <QHash>
#include <QLockFile>
#include <QString>

#include <memory>
#include <vector>

namespace varnow {

/// A journal on the disk, of this program and one database. Only its user may read it. It is there while
/// something is unsaved, and appended to; one that has grown large is written anew. All waits for the disk.
class JournalFile
{
public:
    explicit JournalFile(const db::ConnectionSettings &database);

    /// Takes what became of a record or page. store() writes it.
    void take(const JournalEntry &entry);
    /// Forgets all that was taken before. What is on the disk stays until store().
    void reset();

    /// Brings what was taken onto the disk, and reads it back. Returns what went wrong as a sentence, nothing
    /// when all went well. After a failure the file holds what it held, and the next call tries again.
    QString store();

private:
    bool isDue(qint64 size) const;
    bool append();
    QString writeAnew();
    QString writeTo(const QString &path, const QByteArray &contents) const;
    QString remove();

    db::ConnectionSettings m_database;
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;     // held while the file is there
    QHash<JournalKey, QByteArray> m_lines; // of all that is unsaved
    qint64 m_linesSize = 0;
    QByteArray m_pending; // taken and not yet in the file
    qint64 m_size = -1;   // of the file when it was last in order; -1: it must be written anew
};

} // namespace varnow
