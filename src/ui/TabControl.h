#pragma once

#include "ui/Control.h"

#include <functional>
#include <memory>
#include <vector>

namespace varnow::ui {

/// A row of tabs above an area that shows the controls of one page at a time. The controls of the other
/// pages keep their size and stand `offPage` twips to the left, where nothing reaches them.
class TabControl : public Control
{
public:
    static constexpr float offPage = 75000;

    TabControl(Container &parent, const QString &name, const Rect &place);
    ~TabControl() override;

    std::function<void()> onClick; ///< the shown page changed, by the user or by code

    /// Adds a page and returns what its controls are made on. Their place counts from the corner of the tab
    /// control.
    Container &addPage(const QString &caption);

    /// Index of the page shown, from 0.
    int currentPage() const;
    void setCurrentPage(int index);

    /// To be called after a layout has moved controls of any page to their places.
    void finishLayout();

    /// Height of the row of tabs in twips.
    float tabHeight() const;

    struct Room
    {
        float width;
        float height;
    };

    /// What a page can lay its controls out in, row of tabs included: the size of the tab control, but not
    /// less than the page needs at `least`. The page then scrolls.
    Room roomFor(const Room &least) const;

    void applyPlace() override;

    /// While such an object lives nothing is painted, so that a layout shows only its result.
    class PaintingPaused
    {
    public:
        explicit PaintingPaused(TabControl &tabs);
        ~PaintingPaused();
        PaintingPaused(const PaintingPaused &) = delete;
        PaintingPaused &operator=(const PaintingPaused &) = delete;

    private:
        TabControl &m_tabs;
    };

private:
    class Page;
    void showPage(int index);

    ControlHost &m_host;
    std::vector<std::unique_ptr<Page>> m_pages;
    int m_shown = 0;
};

} // namespace varnow::ui
