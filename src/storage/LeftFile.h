#pragma once

#include "db/ConnectionSettings.h"
#include "storage/LeftChanges.h"

#include <QLockFile>
#include <QString>

#include <memory>
#include <vector>

namespace varnow {

/// A file that a program which no longer runs has left. While this object lives, no other program offers it.
class LeftFile
{
public:
    /// The files left for a database, however that was spelled.
    static std::vector<LeftFile> findAll(const db::ConnectionSettings &database);

    /// Raises a RuntimeError with the reason for a file that cannot be read.
    LeftChanges read();
    /// Drops the file. One with damaged parts is put aside.
    void remove();
    /// Gives the file a name under which it is not found again. Returns whether that went well.
    bool putAside();
    const QString &path() const { return m_path; }
    /// Where putAside() puts the file.
    const QString &asidePath() const { return m_asidePath; }

private:
    LeftFile(const QString &path, std::unique_ptr<QLockFile> lock);

    QString m_path;
    QString m_asidePath;
    std::unique_ptr<QLockFile> m_lock;
    bool m_isDamaged = false;
};

} // namespace varnow
