#include "display/frmTest.h"
#include "fields/modLabLineFldCfg.h"
#include "lines/modLabLineCfg.h"
#include "startup/modGlobals.h"
#include "support/Driver.h"
#include "support/MessageLog.h"

#include <QCoreApplication>
#include <QListView>
#include <QWidget>

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

class DisplayTest : public testing::Test
{
protected:
    DisplayTest()
    {
        gMsgTitle = "Configuration";
        LabLineTable.clear();
        LabLineFldTable.clear();
    }

    ~DisplayTest() override
    {
        LabLineTable.clear();
        LabLineFldTable.clear();
    }

    static void storeLine(QString configuration, const QString &name, int id)
    {
        StoreDataInLabLineConfigRecordArray(id, configuration, name, 2, 5, 0, "", "", {});
    }

    QStringList rows() const
    {
        const auto *model = static_cast<QListView *>(user->control("List1"))->model();
        QStringList found;
        for (int i = 0; i < model->rowCount(); ++i)
            found += model->index(i, 0).data().toString();
        return found;
    }

    MessageLog messages;
    frmTest window;
    std::optional<Driver> user{window};
};

} // namespace

TEST_F(DisplayTest, ListsTheStoresAsTheyAre)
{
    storeLine("B", "OBX", 12);
    storeLine("A", "NTE", -1);
    QString configuration = "A";
    QString name = "Value";
    StoreDataInLabLineFldCfgArray(configuration, name, "OBX", 12, 3, 0, 2, 7, 10, "String", "look", "fmt",
                                  "const", 1, " ", -1, 30);
    user->click("cmdFields");
    QCoreApplication::processEvents();
    EXPECT_EQ(rows(),
              QStringList({"7  Value(0)", "\tLine: OBX(2)", "\tMsgIndex.Position: 3.12", "\tLookup: look",
                           "\tConstant: const", "\tFormat: fmt", "\tFixed Length: 1", "\t\tLength: 10",
                           "\t\tAlignment: -1", "\t\tPad Character:  "}));
    const QStringList lineRows{"12  OBX(2)", "\tMsgIndex: 5", "-1  NTE(2)", "\tMsgIndex: 5"};
    for (int i = 0; i < 2; ++i) {
        user->press(Qt::Key_L, Qt::AltModifier);
        LabLineTable.removeAt(0); // the listing is a snapshot
        QCoreApplication::processEvents();
        EXPECT_EQ(rows(), i == 0 ? lineRows : lineRows.mid(2));
    }
}

TEST_F(DisplayTest, TellsOfAnEmptyStore)
{
    user->click("cmdLines");
    user->click("cmdFields");
    EXPECT_EQ(messages.take(),
              (std::vector<Box>{{"Error loading lines.\r\nError: 9\r\nSubscript out of range"},
                                {"Error loading fields\r\nError: 9\r\nSubscript out of range"}}));
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(DisplayTest, KeepsItsButtonsAtTheBottomRight)
{
    for (const QSize size : {QSize(50, 50), QSize(900, 700)}) {
        window.surface()->resize(size);
        EXPECT_GE(window.width(), 4900);
        EXPECT_GE(window.height(), 2550);
        const QRect exit = user->control("cmdExit")->geometry();
        EXPECT_EQ(window.surface()->width() - exit.right(), window.surface()->height() - exit.bottom());
        EXPECT_EQ(user->control("cmdFields")->geometry().right() + 1, exit.left());
        EXPECT_EQ(user->control("cmdLines")->geometry().right() + 1,
                  user->control("cmdFields")->geometry().left());
        EXPECT_LT(user->control("SSPanel1")->geometry().bottom(), exit.top());
    }
    user->press(Qt::Key_X, Qt::AltModifier);
    EXPECT_FALSE(window.isLoaded());
}

} // namespace varnow::test
