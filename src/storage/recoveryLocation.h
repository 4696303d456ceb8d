#pragma once

#include "db/ConnectionSettings.h"

#include <QLockFile>
#include <QString>

#include <memory>

// Where the files that outlive a crash stand: in the folder "varnow" of the user's state folder.

namespace varnow {

/// Begins the names of all journals for a database, however that was spelled.
QString recoveryPrefix(const db::ConnectionSettings &database);

/// Begins the names of the files that earlier versions wrote. They went by the spelling.
QString earlierRecoveryPrefix(const db::ConnectionSettings &database);

/// The lock that tells other programs that a file is in use. It is not taken yet.
std::unique_ptr<QLockFile> recoveryLock(const QString &path);

} // namespace varnow
