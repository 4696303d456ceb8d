#include "ui/accessibleRole.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace varnow::ui {

namespace {

constexpr const char *roleName = "accessibleRole";

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    const QVariant role = widget != nullptr ? widget->property(roleName) : QVariant();
    return role.isValid() ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}

void setRole(QWidget &widget, QAccessible::Role role)
{
    QAccessible::installFactory(&makeInterface); // once, however often it is called
    widget.setProperty(roleName, static_cast<int>(role));
}

} // namespace

void makeAccessibleWindow(QWidget &widget)
{
    setRole(widget, QAccessible::Window);
}

void makeAccessibleGroup(QWidget &widget, const QString &name)
{
    setRole(widget, QAccessible::Grouping);
    widget.setAccessibleName(name);
}

} // namespace varnow::ui
