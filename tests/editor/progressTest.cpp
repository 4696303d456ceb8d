#include "editor/EditorTest.h"

#include "support/TdsServer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>

namespace varnow::test {

/// A slow server makes a run last longer than a second.
struct ProgressTest : EditorTest
{
    ProgressTest()
    {
        for (int i = 1; i <= 40; ++i)
            addLine(QStringLiteral("L%1").arg(i), 0, i);
        addField("L1", 0, 1, 1, "Only");
        open();
        watch.callOnTimeout([this] {
            for (QWidget *window : QApplication::topLevelWidgets())
                if (window->objectName() == "frmProgress" && window->isVisible())
                    whenShown(window);
        });
        watch.start(20);
    }

    int changedRows()
    {
        return static_cast<int>(database.run("SELECT 1 FROM LabLineConfig WHERE MsgIndex < 0").size());
    }

    QTimer watch;
    std::function<void(QWidget *)> whenShown = [](QWidget *) {
        ADD_FAILURE() << "a short run shows no window";
    };
};

TEST_P(ProgressTest, StopsASaveAndKeepsTheRest)
{
    for (int i = 1; i <= 40; ++i)
        storeLine(0, "Standard", QStringLiteral("L%1").arg(i), 0, -i);
    whenShown = [this](QWidget *window) {
        EXPECT_EQ(window->findChild<QLabel *>("lblWhat")->text(), "Saving the lines");
        EXPECT_TRUE(window->findChild<QLabel *>("lblCount")->text().endsWith(" of 40"));
        const QWidget *exit = user->control("cmdExit"); // no other window listens
        QTest::mouseClick(exit->window()->windowHandle(), Qt::LeftButton, {}, exit->geometry().center());
        QTest::mouseClick(window->findChild<QAbstractButton *>("cmdStop"), Qt::LeftButton);
    };
    user->type("Text1(0)", "changed");
    database.server()->setDelay(20);
    user->click("cmdSave");
    database.server()->setDelay(0);
    const int written = changedRows();
    EXPECT_GT(written, 0);
    EXPECT_LT(written, 40);
    expectBoxes({summary(linesSaved, 40 - written, written), summary(fieldsSaved, 1, 0)});
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(leavingAsks()); // what was not written is not forgotten

    whenShown = [](QWidget *) {};
    user->click("cmdSave");
    EXPECT_EQ(changedRows(), 40);
}

TEST_P(ProgressTest, StoppedLoadLeavesTheLinesAsTheyAre)
{
    database.run("UPDATE LabLineConfig SET Name = 'Other'");
    database.server()->setDelay(500); // of each step that leads to the first row
    whenShown = [](QWidget *window) { window->close(); };
    EXPECT_EQ(GetLabLineConfig(result), 18);
    EXPECT_EQ(LabLineTable[0].Name, "L1");
    EXPECT_EQ(GetAllLabLineFieldsConfig(result), 0);
    expectBoxes({{"There was a problem retrieving the Line Field\r\n"
                  "configuration records.  Return code: 18"}});
}

ON_ENGINES(ProgressTest, Engine::SqlServer);

} // namespace varnow::test
