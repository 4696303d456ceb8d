// That every entry and button tells in a sentence what it is for.

#include "editor/EditorTest.h"
#include "support/fileDialog.h"

#include <QAction>
#include <QWidget>

namespace varnow::test {

namespace {

QStringList unexplainedIn(ui::Window &window)
{
    return unexplained(*window.surface()->window());
}

} // namespace

struct ToolTipTest : EditorTest
{
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        user.emplace(*editor); // to the front, where its menus listen
        user->press(key, modifiers);
    }

    /// What is left unexplained in the window that a menu entry waits for.
    QStringList unexplainedBehind(const QString &menuEntry)
    {
        QStringList names{"no window"};
        whenLoaded("target", [&names](ui::Window &window) {
            names = unexplainedIn(window);
            window.unload();
        });
        for (QAction *entry : user->control("tree")->window()->findChildren<QAction *>()) {
            if (entry->text() == menuEntry)
                entry->trigger();
        }
        return names;
    }
};

// An entry or button that was forgotten, or whose sentence is read with its tags.
TEST_P(ToolTipTest, ExplainEveryEntryAndButton)
{
    addLine("PID", 0, 1);
    addField("PID", 0, 1, 1, "Set ID");
    open();
    user->type("lineMessageIndex", "2");
    user->click("change"); // its notice has a button
    for (const int key : {Qt::Key_F1, Qt::Key_F8, Qt::Key_F11, Qt::Key_F12})
        press(key);
    press(Qt::Key_U, Qt::ControlModifier);
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(user->control("noticeButton1")->isVisible() && user->control("findNext")->isVisible());
    EXPECT_EQ(ui::Window::loadedWindows().size(), 6U);
    for (ui::Window *window : ui::Window::loadedWindows())
        EXPECT_EQ(unexplainedIn(*window), QStringList())
            << qPrintable(window->surface()->window()->windowTitle());
    user->showPage(1);
    EXPECT_EQ(unexplainedIn(*editor), QStringList());
    for (const QString entry : {"&New…", "&Copy to…"})
        EXPECT_EQ(unexplainedBehind(entry), QStringList()) << qPrintable(entry);
}

ON_ENGINES(ToolTipTest, Engine::Sqlite);

} // namespace varnow::test
