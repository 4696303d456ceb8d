#include "util/modMouse.h"

#include "ui/Application.h"

namespace varnow {

void SetMousePointer(int pointer)
{
    ui::setScreenPointer(pointer);
}

} // namespace varnow
