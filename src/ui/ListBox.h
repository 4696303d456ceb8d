#pragma once

#include "ui/ListControl.h"

namespace varnow::ui {

/// A list of text rows to look at.
class ListBox : public ListControl
{
public:
    ListBox(Container &parent, const QString &name, const Rect &place);

    int itemCount() const override;
    QString itemText(int index) const override;
    void addItem(const QString &text);
    void clear();

private:
    class Rows;
    class View;
    Rows *m_rows;
};

} // namespace varnow::ui
