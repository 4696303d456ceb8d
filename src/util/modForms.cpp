#include "util/modForms.h"

#include "ui/Window.h"

namespace varnow {

void UnloadAllForms()
{
    for (ui::Window *window : ui::Window::loadedWindows())
        window->unload();
}

} // namespace varnow
