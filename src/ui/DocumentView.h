#pragma once

#include "ui/Control.h"

#include <QStringList>

namespace varnow::ui {

/// A Markdown document to read, with its pictures, which are never wider than the view.
class DocumentView : public Control
{
public:
    DocumentView(Container &parent, const QString &name, const Rect &place = {});

    /// Shows a file. Returns whether it could be read.
    bool showFile(const QString &path);

    /// The headings below the title, in their order; those of a lower level are indented.
    QStringList headings() const;

    /// Brings a heading to the top, counted from 0.
    void goTo(int heading);

private:
    class Browser;
    Browser *browser() const;
};

} // namespace varnow::ui
