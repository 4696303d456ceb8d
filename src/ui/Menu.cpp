#include "ui/Menu.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace varnow::ui {

namespace {

/// Keeps the widgets of a menu bar's window from claiming the keys of its entries.
class KeysOfMenus : public QObject
{
public:
    explicit KeysOfMenus(QMenuBar &bar) : QObject(&bar), m_bar(bar) {}

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() != QEvent::ShortcutOverride)
            return false;
        const auto *widget = qobject_cast<QWidget *>(object);
        auto *key = static_cast<QKeyEvent *>(event);
        if (widget == nullptr || widget->window() != m_bar.window() || key->matches(QKeySequence::Undo) ||
            key->matches(QKeySequence::Redo) || !isOfEntry(QKeySequence(key->keyCombination())))
            return false;
        event->ignore();
        return true;
    }

private:
    bool isOfEntry(const QKeySequence &key) const
    {
        for (const QAction *menu : m_bar.actions()) {
            for (const QAction *entry : menu->menu()->actions()) {
                if (entry->shortcuts().contains(key))
                    return true;
            }
        }
        return false;
    }

    QMenuBar &m_bar;
};

} // namespace

void letKeysThrough(QMenuBar &bar)
{
    QCoreApplication::instance()->installEventFilter(new KeysOfMenus(bar));
}

void MenuEntry::setCaption(const QString &caption)
{
    m_action->setText(caption);
}

void MenuEntry::setEnabled(bool enabled)
{
    m_action->setEnabled(enabled);
}

void MenuEntry::ignoreRepeats()
{
    m_action->setAutoRepeat(false);
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
