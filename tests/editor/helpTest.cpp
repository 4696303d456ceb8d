// The guide as a window of the program.

#include "editor/EditorTest.h"

#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFragment>
#include <QTreeView>

namespace varnow::test {

struct HelpTest : EditorTest
{
};

// Faults: a guide that is not found, a picture that is missing or wider than the window, a chapter that is
// not reached.
TEST_P(HelpTest, ShowsTheGuideWithItsPictures)
{
    open();
    user->press(Qt::Key_F1);
    ASSERT_EQ(ui::Window::loadedWindows().size(), 2U);
    const Driver help(*ui::Window::loadedWindows().back());
    const auto *guide = static_cast<QTextBrowser *>(help.control("guide"));
    int pictures = 0;
    for (QTextBlock block = guide->document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            if (!format.isValid())
                continue;
            ++pictures;
            EXPECT_GT(format.width(), 0) << qPrintable(format.name());
            EXPECT_LT(format.width(), guide->viewport()->width()) << qPrintable(format.name());
        }
    }
    EXPECT_GT(pictures, 3);

    const auto *headings = static_cast<QTreeView *>(help.control("headings"));
    const QModelIndex last = headings->model()->index(headings->model()->rowCount() - 1, 0);
    QTest::mouseClick(headings->viewport(), Qt::LeftButton, {}, headings->visualRect(last).center());
    EXPECT_EQ(guide->textCursor().block().text(), last.data().toString());
    help.press(Qt::Key_Escape);
    EXPECT_EQ(ui::Window::loadedWindows().size(), 1U);
}

ON_ENGINES(HelpTest, Engine::Sqlite);

} // namespace varnow::test
