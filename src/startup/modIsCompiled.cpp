#include "startup/modIsCompiled.h"

namespace varnow {

bool IsCompiled()
{
#ifdef VARNOW_DEVELOPMENT
    return false;
#else
    return true;
#endif
}

} // namespace varnow
