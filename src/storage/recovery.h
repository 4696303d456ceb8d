#pragma once

#include "db/ConnectionSettings.h"
#include "model/Model.h"

#include <QDateTime>
#include <QLockFile>
#include <QString>

#include <memory>
#include <vector>

// What is unsaved is kept in a file, so that neither a crash nor a power cut loses it. The files stand in the
// folder "varnow" of the user's state folder, one for each database and running program, for the user alone.
// They hold no password.

namespace varnow {

/// Unsaved changes of an earlier run, each record's in the order in which the records came into memory.
struct LeftChanges
{
    QDateTime time; ///< when they were written
    std::vector<UnsavedChange<Line>> lines;
    std::vector<UnsavedChange<Field>> fields;

    bool isEmpty() const { return lines.empty() && fields.empty(); }
};

/// The file of this program for one database.
class RecoveryFile
{
public:
    explicit RecoveryFile(const db::ConnectionSettings &database);

    /// Writes all that is unsaved, and what was left by an earlier run and not settled yet; without anything
    /// the file goes. Returns whether that went well.
    bool write(const Model &model, const LeftChanges &conflicts = {});
    /// Drops the file, whatever is unsaved.
    void remove();

private:
    db::ConnectionSettings m_database;
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
};

/// A file that a program which no longer runs has left. While this object lives, no other program offers it.
class LeftFile
{
public:
    /// The files left for a database.
    static std::vector<LeftFile> findAll(const db::ConnectionSettings &database);

    /// Raises a RuntimeError with the reason for a file that cannot be read.
    LeftChanges read() const;
    /// Drops the file.
    void remove();
    /// Gives the file a name under which it is not found again, and returns that; empty when that failed.
    QString putAside();

private:
    LeftFile(const QString &path, std::unique_ptr<QLockFile> lock) : m_path(path), m_lock(std::move(lock)) {}

    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
};

/// Puts left changes into memory. A record that has changed in the database meanwhile keeps what is there;
/// these changes are returned.
LeftChanges restore(const LeftChanges &changes, Model &model);

} // namespace varnow
