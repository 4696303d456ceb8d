#pragma once

#include <QString>

#include <functional>

class QAction;
class QMenu;
class QMenuBar;

namespace varnow::ui {

/// One entry of a menu.
class MenuEntry
{
public:
    explicit MenuEntry(QAction *action) : m_action(action) {}

    void setCaption(const QString &caption);
    void setEnabled(bool enabled);
    /// Lets keys that are held act once.
    void ignoreRepeats();

private:
    QAction *m_action;
};

/// Lets the keys of the bar's entries work wherever the focus is: an entry would take some of them for
/// editing, Ctrl+U for one. Those for undo and redo it keeps.
void letKeysThrough(QMenuBar &bar);

/// A menu of a window's menu bar.
class Menu
{
public:
    explicit Menu(QMenu *menu) : m_menu(menu) {}

    /// Adds an entry, which works by its keys, named like "Ctrl+S", too. More than one are parted by blanks.
    MenuEntry add(const QString &caption, const QString &keys, const std::function<void()> &onClick);

private:
    QMenu *m_menu;
};

} // namespace varnow::ui
