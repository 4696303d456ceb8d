#pragma once

#include "document/Document.h"
#include "model/RecordReference.h"

#include <functional>
#include <memory>

namespace varnow {

class CheckWindow;
class EntryPages;
class HelpWindow;
class LayoutWindow;
class ListingWindow;
class UnsavedWindow;

/// The windows beside the editor, each made when it is first asked for.
class EditorWindows
{
public:
    /// `onShow`: a window names a record to show in the editor. The document must outlive the windows.
    EditorWindows(Document &document, const std::function<void(const RecordReference &)> &onShow);
    ~EditorWindows();

    void showUnsaved();
    void showCheck();
    /// Draws the line that the pages show, from now on.
    void showLayout(EntryPages &pages);
    void showListing();
    void showGuide();

    /// Draws the line that the pages show now, if the layout's window is open.
    void drawLayout(EntryPages &pages);

private:
    Document &m_document;
    std::function<void(const RecordReference &)> m_onShow;
    std::unique_ptr<UnsavedWindow> m_unsaved;
    std::unique_ptr<CheckWindow> m_check;
    std::unique_ptr<LayoutWindow> m_layout;
    std::unique_ptr<ListingWindow> m_listing;
    std::unique_ptr<HelpWindow> m_guide;
};

} // namespace varnow
