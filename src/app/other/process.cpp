// For systems without POSIX's calls. There nobody tells a program with windows to end but the desktop, which
// the editor answers anyway (ui::SessionEnd), and no core files are written unless the user sets the system
// up for it.

#include "app/process.h"

namespace varnow {

void forbidCoreFiles() {}
void shareOneHeap() {}

EndWhenTold::EndWhenTold(const std::function<void()> &) {}
EndWhenTold::~EndWhenTold() = default;

} // namespace varnow
