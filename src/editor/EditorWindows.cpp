#include "editor/EditorWindows.h"

#include "editor/EntryPages.h"
#include "editor/HelpWindow.h"
#include "review/CheckWindow.h"
#include "review/LayoutWindow.h"
#include "review/ListingWindow.h"
#include "review/UnsavedWindow.h"

namespace varnow {

namespace {

/// Makes the window on its first use.
template <class Window, class... Arguments>
Window &opened(std::unique_ptr<Window> &window, Arguments &...arguments)
{
    if (!window)
        window = std::make_unique<Window>(arguments...);
    return *window;
}

template <class Window, class... Arguments>
Window &openedToShow(std::unique_ptr<Window> &window,
                     const std::function<void(const RecordReference &)> &onShow, Arguments &...arguments)
{
    opened(window, arguments...).onShow = onShow;
    return *window;
}

} // namespace

EditorWindows::EditorWindows(Document &document, const std::function<void(const RecordReference &)> &onShow)
    : m_document(document), m_onShow(onShow)
{
}

EditorWindows::~EditorWindows() = default;

void EditorWindows::showUnsaved()
{
    openedToShow(m_unsaved, m_onShow, m_document).show();
}

void EditorWindows::showCheck()
{
    openedToShow(m_check, m_onShow, m_document).show();
}

void EditorWindows::showLayout(EntryPages &pages)
{
    openedToShow(m_layout, m_onShow, m_document).show();
    drawLayout(pages);
}

void EditorWindows::drawLayout(EntryPages &pages)
{
    if (m_layout)
        m_layout->draw(pages.shown().namedLine(), pages.fields().namedRecord());
}

void EditorWindows::showListing()
{
    opened(m_listing, m_document).show();
}

void EditorWindows::showGuide()
{
    opened(m_guide).show();
}

} // namespace varnow
