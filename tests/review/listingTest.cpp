#include "review/ListingWindow.h"
#include "support/Driver.h"
#include "support/MessageLog.h"
#include "support/ModelFixture.h"

#include <QCoreApplication>
#include <QListView>
#include <QWidget>

namespace varnow::test {

namespace {

struct ListingTest : testing::Test
{
    QStringList rows() const
    {
        QCoreApplication::processEvents();
        const auto *shown = static_cast<QListView *>(user.control("list"))->model();
        QStringList found;
        for (int i = 0; i < shown->rowCount(); ++i)
            found += shown->index(i, 0).data().toString();
        return found;
    }

    MessageLog messages;
    Session session;
    Document document{session};
    ListingWindow window{document};
    Driver user{window};
};

} // namespace

TEST_F(ListingTest, ListsTheTablesAsTheyAre)
{
    document.edit({}, [](Edit &edit) {
        edit.lines.store(line(12, "B", "OBX", 2, 5));
        edit.lines.store(line(-1, "A", "NTE", 2, 5));
        edit.fields.store(
            {7, "A", "Value", 0, "OBX", 2, 3, 12, 10, "String", "look", "fmt", "const", 30, 1, " ", -1});
    });
    user.click("fields");
    EXPECT_EQ(rows(),
              QStringList({"7  Value(0)", "\tLine: OBX(2)", "\tMsgIndex.Position: 3.12", "\tLookup: look",
                           "\tConstant: const", "\tFormat: fmt", "\tFixed Length: 1", "\t\tLength: 10",
                           "\t\tAlignment: -1", "\t\tPad Character:  "}));
    const QStringList lineRows{"12  OBX(2)", "\tMsgIndex: 5", "-1  NTE(2)", "\tMsgIndex: 5"};
    user.press(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(rows(), lineRows);
    document.edit({}, [](Edit &edit) { edit.lines.remove(0); });
    EXPECT_EQ(rows(), lineRows.mid(2)) << "the listing follows the document";
    window.unload();
    window.show();
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(ListingTest, TellsOfAnEmptyTable)
{
    user.click("lines");
    user.click("fields");
    EXPECT_EQ(messages.take(), (Boxes{{"Error loading lines.\r\nError: 9\r\nSubscript out of range"},
                                      {"Error loading fields\r\nError: 9\r\nSubscript out of range"}}));
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(ListingTest, KeepsItsButtonsAtTheBottomRight)
{
    for (const QSize size : {QSize(50, 50), QSize(900, 700)}) {
        window.surface()->window()->resize(size);
        const QSize outer = window.surface()->window()->frameGeometry().size();
        EXPECT_GE(static_cast<float>(outer.width()) / window.scale().x, 4900);
        EXPECT_GE(static_cast<float>(outer.height()) / window.scale().y, 2550);
        const QRect exit = user.control("exit")->geometry();
        const QRect fieldButton = user.control("fields")->geometry();
        EXPECT_EQ(window.surface()->width() - exit.right(), window.surface()->height() - exit.bottom());
        EXPECT_EQ(fieldButton.right() + 1, exit.left());
        EXPECT_EQ(user.control("lines")->geometry().right() + 1, fieldButton.left());
        EXPECT_LT(user.control("panel")->geometry().bottom(), exit.top());
    }
    user.press(Qt::Key_X, Qt::AltModifier);
    EXPECT_FALSE(window.isLoaded());
}

} // namespace varnow::test
