// What the Help menu tells about the program.

#include "editor/EditorTest.h"
#include "support/fileDialog.h"

#include "storage/version.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace varnow::test {

using AboutTest = EditorTest;

// Faults: a report that lacks what is shown; a window that the keyboard cannot reach, use or leave.
TEST_P(AboutTest, ShowsAndCopiesTheVersions)
{
    open({}, "");
    QStringList shown;
    whenLoaded("about", [&shown](ui::Window &window) {
        const Driver about(window);
        EXPECT_EQ(about.focused(), "versions");
        EXPECT_EQ(unexplained(*window.surface()->window()), QStringList());
        const QAccessibleInterface *list = QAccessible::queryAccessibleInterface(about.control("versions"));
        EXPECT_EQ(list->text(QAccessible::Name), "Versions");
        const auto *rows = static_cast<QAbstractItemView *>(about.control("versions"))->model();
        for (int row = 0; row < rows->rowCount(); ++row)
            shown += rows->index(row, 0).data().toString();
        about.press(Qt::Key_C, Qt::AltModifier);
        EXPECT_EQ(about.text("copied"), "Copied to the clipboard.");
        about.press(Qt::Key_Escape);
    });
    user->press(Qt::Key_P, Qt::AltModifier);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_A);
    EXPECT_EQ(ui::Window::loadedWindows().size(), 1U);
    EXPECT_EQ(shown.join(u'\n'), versionText());
    EXPECT_EQ(QApplication::clipboard()->text(), versionText());
}

ON_ENGINES(AboutTest, Engine::Sqlite);

} // namespace varnow::test
