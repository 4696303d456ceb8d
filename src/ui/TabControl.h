#pragma once

#include "ui/Control.h"

#include <QStringList>

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

    TabControl(Container &parent, const QString &name, const QStringList &captions, const Rect &place);
    ~TabControl() override;

    /// The shown page changed, by the user or by code; told the page shown before.
    std::function<void(int previousPage)> onClick;

    /// What the controls of a page are made on. Their place counts from the corner of the tab control.
    Container &page(int index);

    /// Index of the page shown, from 0.
    int currentPage() const;
    void setCurrentPage(int index);

    /// Height of the row of tabs in twips.
    float tabHeight() const;

    /// While false nothing is painted, so that a layout shows only its result.
    void setPainting(bool painting);

private:
    class Page;
    void showPage(int index);

    ControlHost &m_host;
    std::vector<std::unique_ptr<Page>> m_pages;
    int m_shown = 0;
};

} // namespace varnow::ui
