// For systems without POSIX's calls: when the disk is written is left to the system.

#include "base/syncToDisk.h"

namespace varnow {

bool syncToDisk(int)
{
    return true;
}

bool syncFolder(const QString &)
{
    return true;
}

} // namespace varnow
