// For systems with POSIX's calls.

#include "app/process.h"

#include <array>
#include <csignal>
#include <cstdlib>

#include <unistd.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#include <sys/resource.h>
#endif

namespace varnow {

namespace {

constexpr std::array<int, 3> signalNumbers{SIGTERM, SIGINT, SIGHUP};

// Global, for a signal handler has nothing else; it may do no more than write.
std::array<int, 2> signalPipe{-1, -1};

void tellSignal(int number)
{
    const auto byte = static_cast<char>(number);
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
}

} // namespace

void forbidCoreFiles()
{
#ifdef Q_OS_LINUX
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    prctl(PR_SET_DUMPABLE, 0); // the limit does not hold for a core file that is piped to another program
#endif
}

void shareOneHeap()
{
#ifdef __GLIBC__
    mallopt(M_ARENA_MAX, 1);
#endif
}

EndWhenTold::EndWhenTold(const std::function<void()> &last)
{
    if (pipe(signalPipe.data()) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [last] {
        char number = 0;
        if (read(signalPipe[0], &number, 1) != 1)
            return;
        last();
        std::_Exit(128 + number);
    });
    for (const int number : signalNumbers)
        std::signal(number, tellSignal);
}

EndWhenTold::~EndWhenTold()
{
    if (!m_notifier)
        return;
    for (const int number : signalNumbers)
        std::signal(number, SIG_DFL);
    for (const int end : signalPipe)
        close(end);
}

} // namespace varnow
