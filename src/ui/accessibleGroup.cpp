#include "ui/accessibleGroup.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace varnow::ui {

namespace {

constexpr const char *mark = "accessibleGroup";

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    const bool isGroup = widget != nullptr && widget->property(mark).toBool();
    return isGroup ? new QAccessibleWidget(widget, QAccessible::Grouping) : nullptr;
}

} // namespace

void makeAccessibleGroup(QWidget &widget, const QString &name)
{
    QAccessible::installFactory(&makeInterface); // once, however often it is called
    widget.setProperty(mark, true);
    widget.setAccessibleName(name);
}

} // namespace varnow::ui
