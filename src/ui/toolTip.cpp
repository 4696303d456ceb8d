#include "ui/toolTip.h"

#include <QWidget>

namespace varnow::ui {

QString toolTipText(const QString &text)
{
    if (text.isEmpty())
        return {};
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()); // plain text would stay in one line
}

void explain(QWidget &widget, const QString &sentence)
{
    widget.setToolTip(toolTipText(sentence));
    widget.setAccessibleDescription(sentence); // else the tooltip with its tags would be read
}

} // namespace varnow::ui
