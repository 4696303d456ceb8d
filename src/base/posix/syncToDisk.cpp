#include "base/syncToDisk.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace varnow {

bool syncToDisk(int fileHandle)
{
    int result = 0;
    do {
        result = ::fsync(fileHandle);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOTSUP; // some file systems have no such call
}

bool syncFolder(const QString &path)
{
    const int handle = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool isSynced = syncToDisk(handle);
    ::close(handle);
    return isSynced;
}

} // namespace varnow
