// What the Help menu tells about the program.

#include "editor/EditorTest.h"

#include "storage/version.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QTimer>

namespace varnow::test {

using AboutTest = EditorTest;

// Faults: a report that lacks what is shown; a window that the keyboard cannot reach, use or leave.
TEST_P(AboutTest, ShowsAndCopiesTheVersions)
{
    open({}, "");
    user->press(Qt::Key_P, Qt::AltModifier);
    QStringList shown;
    QTimer::singleShot(0, [&shown] { // the window waits for its user
        ASSERT_EQ(ui::Window::loadedWindows().size(), 2U);
        const Driver about(*ui::Window::loadedWindows()[1]);
        QApplication::processEvents();
        EXPECT_EQ(about.focused(), "versions");
        const QAccessibleInterface *list = QAccessible::queryAccessibleInterface(about.control("versions"));
        EXPECT_EQ(list->text(QAccessible::Name), "Versions");
        const auto *rows = static_cast<QAbstractItemView *>(about.control("versions"))->model();
        for (int row = 0; row < rows->rowCount(); ++row)
            shown += rows->index(row, 0).data().toString();
        about.press(Qt::Key_C, Qt::AltModifier);
        EXPECT_EQ(about.text("copied"), "Copied to the clipboard.");
        about.press(Qt::Key_Escape);
    });
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_A);
    EXPECT_EQ(ui::Window::loadedWindows().size(), 1U);
    EXPECT_EQ(shown.join(u'\n'), versionText());
    EXPECT_EQ(QApplication::clipboard()->text(), versionText());
}

ON_EVERY_ENGINE(AboutTest);

} // namespace varnow::test
