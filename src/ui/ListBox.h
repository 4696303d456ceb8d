#pragma once

#include "ui/Control.h"

namespace varnow::ui {

/// A list of text rows to look at.
class ListBox : public Control
{
public:
    ListBox(Container &parent, const QString &name, const Rect &place);

    void addItem(const QString &text);
    void clear();

private:
    class Rows;
    class View;
    Rows *m_rows;
};

} // namespace varnow::ui
