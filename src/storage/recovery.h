#pragma once

#include "model/Model.h"
#include "storage/LeftChanges.h"
#include "storage/LeftFile.h"
#include "storage/RecoveryJournal.h"

// What is unsaved is kept in a file, so that neither a crash nor a power cut loses it. The files stand in the
// folder "varnow" of the user's state folder, one for each database and running program, for the user alone.
// They hold no password.

namespace varnow {

/// The file of this program for one database, written as a whole.
class RecoveryFile
{
public:
    explicit RecoveryFile(const db::ConnectionSettings &database) : m_journal(database) {}

    /// Writes all that is unsaved, and what was left by an earlier run and not settled yet; without anything
    /// the file goes. Returns whether that went well.
    bool write(const Model &model, const LeftChanges &conflicts = {});
    /// Drops the file, whatever is unsaved.
    void remove();

private:
    RecoveryJournal m_journal;
};

/// Puts left changes into memory. A record that has changed in the database meanwhile keeps what is there;
/// these changes are returned.
LeftChanges restore(const LeftChanges &changes, Model &model);

} // namespace varnow
