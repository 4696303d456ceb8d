#pragma once

#include <QString>

namespace varnow {

/// Waits until what was written to an open file is on the disk. Returns false when the disk refused it.
bool syncToDisk(int fileHandle);

/// Waits until the names in a folder are on the disk: those of files just made, renamed or removed. Returns
/// false when the disk refused it.
bool syncFolder(const QString &path);

} // namespace varnow
