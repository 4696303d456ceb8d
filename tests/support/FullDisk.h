#pragma once

#include <QByteArray>
#include <QString>

#include <csignal>

#include <sys/mount.h>
#include <sys/resource.h>

namespace varnow::test {

/// While such an object lives, this program's files can not grow beyond a size: writing ends in the middle,
/// as on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 size) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{static_cast<rlim_t>(size), m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

/// A small file system of the test's own. Only an administrator can have one.
class SmallDisk
{
public:
    explicit SmallDisk(const QString &folder) : m_folder(folder.toLocal8Bit())
    {
        m_isMounted = mount("tmpfs", m_folder, "tmpfs", 0, "size=256k") == 0;
    }
    ~SmallDisk()
    {
        if (m_isMounted)
            umount2(m_folder, MNT_DETACH);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return m_isMounted; }
    /// Allows writing again, or no longer.
    bool setWritable(bool isWritable) const
    {
        const unsigned long flags = isWritable ? MS_REMOUNT : MS_REMOUNT | MS_RDONLY;
        return mount("tmpfs", m_folder, "tmpfs", flags, "size=256k") == 0;
    }

private:
    QByteArray m_folder;
    bool m_isMounted = false;
};

} // namespace varnow::test
