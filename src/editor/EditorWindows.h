#pragma once

#include "document/Document.h"
#include "model/RecordReference.h"
#include "ui/Window.h"

#include <functional>
#include <memory>
#include <typeindex>
#include <unordered_map>

namespace varnow {

/// The windows beside the editor, each made when it is first asked for.
class EditorWindows
{
public:
    /// `onShow`: a window names a record to show in the editor. The document must outlive the windows.
    EditorWindows(Document &document, const std::function<void(const RecordReference &)> &onShow)
        : m_document(document), m_onShow(onShow)
    {
    }

    /// Shows the window of a class, which is made from the document, or from nothing.
    template <class Window> Window &open()
    {
        Window *window = find<Window>();
        if (window == nullptr)
            window = make<Window>();
        window->show();
        return *window;
    }

    /// The window of a class; null while nobody has asked for it.
    template <class Window> Window *find() const
    {
        const auto found = m_windows.find(typeid(Window));
        return found == m_windows.end() ? nullptr : static_cast<Window *>(found->second.get());
    }

private:
    template <class Window> Window *make()
    {
        std::unique_ptr<Window> made;
        if constexpr (std::is_constructible_v<Window, Document &>)
            made = std::make_unique<Window>(m_document);
        else
            made = std::make_unique<Window>();
        if constexpr (requires { made->onShow; })
            made->onShow = m_onShow;
        Window *window = made.get();
        m_windows[typeid(Window)] = std::move(made);
        return window;
    }

    Document &m_document;
    std::function<void(const RecordReference &)> m_onShow;
    std::unordered_map<std::type_index, std::unique_ptr<ui::Window>> m_windows;
};

} // namespace varnow
