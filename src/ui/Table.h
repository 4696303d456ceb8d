#pragma once

#include "ui/Control.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace varnow::ui {

/// Rows of texts under headings, of which the user selects some. Rows are counted from 0. Names within a text
/// are as isolated() gives them; long ones are shortened, and whole in the tooltip.
class Table : public Control
{
public:
    Table(Container &parent, const QString &name, const QStringList &headings, const Rect &place = {});

    std::function<void(int row)> onActivate; ///< double-click, or Enter on the current row
    std::function<void()> onSelect;          ///< other rows are selected

    /// Shows these rows. The row where the current one was is current and selected; at first it is row 0.
    void setRows(std::vector<QStringList> rows);

    /// In ascending order.
    std::vector<int> selectedRows() const;

private:
    class Rows;
    class View;
    View *view() const;
    void copySelection();

    Rows *m_rows;
};

} // namespace varnow::ui
