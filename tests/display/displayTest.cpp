#include "display/frmTest.h"
#include "support/Driver.h"
#include "support/StoreFixture.h"

#include <QCoreApplication>
#include <QListView>
#include <QWidget>

namespace varnow::test {

namespace {

struct DisplayTest : testing::Test, StoreFixture
{
    QStringList rows() const
    {
        QCoreApplication::processEvents();
        const auto *model = static_cast<QListView *>(user.control("List1"))->model();
        QStringList found;
        for (int i = 0; i < model->rowCount(); ++i)
            found += model->index(i, 0).data().toString();
        return found;
    }

    frmTest window;
    Driver user{window};
};

} // namespace

TEST_F(DisplayTest, ListsTheStoresAsTheyAre)
{
    storeLine(12, "B", "OBX", 2, 5);
    storeLine(-1, "A", "NTE", 2, 5);
    storeField({7, "A", "Value", 0, "OBX", 2, 12, 10, "String", "look", "fmt", "const", 3, 1, " ", -1, 30});
    user.click("cmdFields");
    EXPECT_EQ(rows(),
              QStringList({"7  Value(0)", "\tLine: OBX(2)", "\tMsgIndex.Position: 3.12", "\tLookup: look",
                           "\tConstant: const", "\tFormat: fmt", "\tFixed Length: 1", "\t\tLength: 10",
                           "\t\tAlignment: -1", "\t\tPad Character:  "}));
    const QStringList lineRows{"12  OBX(2)", "\tMsgIndex: 5", "-1  NTE(2)", "\tMsgIndex: 5"};
    user.press(Qt::Key_L, Qt::AltModifier);
    LabLineTable.removeAt(0);
    EXPECT_EQ(rows(), lineRows) << "the listing is a snapshot";
    user.click("cmdLines");
    EXPECT_EQ(rows(), lineRows.mid(2));
}

TEST_F(DisplayTest, TellsOfAnEmptyStore)
{
    user.click("cmdLines");
    user.click("cmdFields");
    expectBoxes({{"Error loading lines.\r\nError: 9\r\nSubscript out of range"},
                 {"Error loading fields\r\nError: 9\r\nSubscript out of range"}});
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(DisplayTest, KeepsItsButtonsAtTheBottomRight)
{
    for (const QSize size : {QSize(50, 50), QSize(900, 700)}) {
        window.surface()->resize(size);
        EXPECT_GE(window.width(), 4900);
        EXPECT_GE(window.height(), 2550);
        const QRect exit = user.control("cmdExit")->geometry();
        const QRect fields = user.control("cmdFields")->geometry();
        EXPECT_EQ(window.surface()->width() - exit.right(), window.surface()->height() - exit.bottom());
        EXPECT_EQ(fields.right() + 1, exit.left());
        EXPECT_EQ(user.control("cmdLines")->geometry().right() + 1, fields.left());
        EXPECT_LT(user.control("SSPanel1")->geometry().bottom(), exit.top());
    }
    user.press(Qt::Key_X, Qt::AltModifier);
    EXPECT_FALSE(window.isLoaded());
}

} // namespace varnow::test
