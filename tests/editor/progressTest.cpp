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
                if (window->objectName() == "progress" && window->isVisible())
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
    document->edit({}, [](Edit &edit) {
        for (int i = 1; i <= 40; ++i)
            edit.lines.store(line(0, "Standard", QStringLiteral("L%1").arg(i), 0, -i));
    });
    whenShown = [this](QWidget *window) {
        EXPECT_EQ(window->findChild<QLabel *>("what")->text(), "Saving the lines");
        EXPECT_TRUE(window->findChild<QLabel *>("count")->text().endsWith(" of 40"));
        EXPECT_EQ(unexplained(*window), QStringList());
        const QWidget *exit = user->control("exit"); // no other window listens
        QTest::mouseClick(exit->window()->windowHandle(), Qt::LeftButton, {}, exit->geometry().center());
        QTest::mouseClick(window->findChild<QAbstractButton *>("stop"), Qt::LeftButton);
    };
    user->type("lineName", "changed");
    database.server()->setDelay(20);
    user->click("save");
    database.server()->setDelay(0);
    const int written = changedRows();
    EXPECT_GT(written, 0);
    EXPECT_LT(written, 40);
    expectBoxes({Box{summary(linesSaved, 40 - written, written)}, Box{summary(fieldsSaved, 1, 0)}});
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(leavingAsks()); // what was not written is not forgotten

    whenShown = [](QWidget *) {};
    user->click("save");
    EXPECT_EQ(changedRows(), 40);
}

TEST_P(ProgressTest, LeavesTheRecordsAsTheyAreWhenALoadIsStopped)
{
    database.run("UPDATE LabLineConfig SET Name = 'Other'");
    database.server()->failStatements({.kind = Fault::Hang}, "LabLineConfig");
    whenShown = [&](QWidget *window) {
        EXPECT_EQ(window->findChild<QLabel *>("what")->text(), "Reading the lines");
        EXPECT_EQ(window->findChild<QLabel *>("count")->text(), "");
        window->close();
    };
    ui::RunWindow run;
    EXPECT_EQ(document->reload(run), errors::UserInterrupt);
    EXPECT_EQ(lines()[0].name, "L1");
}

ON_ENGINES(ProgressTest, Engine::SqlServer);

} // namespace varnow::test
