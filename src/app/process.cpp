#include "app/process.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#include <sys/resource.h>
#endif

namespace varnow {

void forbidCoreFiles()
{
#ifdef Q_OS_LINUX
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    prctl(PR_SET_DUMPABLE, 0); // the limit does not hold for a core file that is piped to another program
#endif
}

} // namespace varnow
