#include "OffscreenPlatform.h"

#include <QtGlobal>

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

namespace varnow::bench {

namespace {

// Qt gives these in its default category, where a logging rule would silence every other warning too. The
// filter is a process of its own, so that it also passes on what an abort leaves behind.
constexpr const char *withoutTheseLines = "exec grep --line-buffered -vxF"
                                          " -e 'This plugin does not support propagateSizeHints()'"
                                          " -e 'This plugin does not support raise()' >&2";

} // namespace

OffscreenPlatform::OffscreenPlatform()
    : m_filter(popen(withoutTheseLines, "we")), m_unfiltered(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0))
{
    if (m_filter == nullptr || m_unfiltered < 0)
        std::abort();
    dup2(fileno(m_filter), STDERR_FILENO);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", m_runtimeFolder.path().toLocal8Bit());
    qputenv("XDG_STATE_HOME", m_runtimeFolder.path().toLocal8Bit());
}

OffscreenPlatform::~OffscreenPlatform()
{
    dup2(m_unfiltered, STDERR_FILENO); // the filter ends when nobody can write to it any more
    close(m_unfiltered);
    pclose(m_filter);
}

} // namespace varnow::bench
