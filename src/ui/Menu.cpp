#include "ui/Menu.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

namespace varnow::ui {

void MenuEntry::setCaption(const QString &caption)
{
    m_action->setText(caption);
}

void MenuEntry::setEnabled(bool enabled)
{
    m_action->setEnabled(enabled);
}

MenuEntry Menu::add(const QString &caption, const QString &keys, const std::function<void()> &onClick)
{
    QAction *action = m_menu->addAction(caption);
    QList<QKeySequence> shortcuts;
    for (const QString &key : keys.split(u' ', Qt::SkipEmptyParts))
        shortcuts += QKeySequence(key);
    action->setShortcuts(shortcuts);
    QObject::connect(action, &QAction::triggered, action, [onClick] { onClick(); });
    return MenuEntry(action);
}

} // namespace varnow::ui
