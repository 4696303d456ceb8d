// What the notice bar says, what its buttons fix, and what the window of unsaved changes takes back.

#include "editor/EditorTest.h"
#include "model/RecordReference.h"

#include "base/folders.h"
#include "base/names.h"

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTreeView>

namespace varnow::test {

struct NoticeTest : EditorTest
{
    NoticeTest()
    {
        addLine("PID", 1, 1);
        addLine("OBR", 0, 2);
        addLine("OBX", 2, 3);
        addField("PID", 1, 1, 1, "Set ID");
        addField("OBX", 2, 3, 6, "Value", 1);
        addField("OBX", 2, 3, 7, "Units");
        open();
    }

    QString notice() const { return user->control("noticeSentence")->accessibleName(); }

    /// The captions of the notice's buttons, joined by "|".
    QString buttons() const
    {
        QStringList captions;
        for (const QString name : {"noticeButton1", "noticeButton2"}) {
            if (user->control(name)->isVisible())
                captions += user->text(name);
        }
        return captions.join(u'|');
    }

    void change(std::initializer_list<std::pair<QString, QString>> entries)
    {
        user->fill(entries);
        user->click("change");
    }

    void remove()
    {
        messages.answerWith(ui::Answer::Yes);
        user->click("delete");
    }

    QString lineOf(const QString &field, int nameIndex = 0) const
    {
        const int index = fields().find("Standard", field, nameIndex);
        return index < 0 ? "none" : nameOf(fields()[index].line, fields()[index].lineIndex);
    }
};

// Faults: a sentence that tells another story than what was done, a fix that does something else.
TEST_P(NoticeTest, TellsWhatALinesChangeDidAndCuresIt)
{
    EXPECT_EQ(notice(), "Loaded: 3 lines and 3 fields.");
    const QAccessibleInterface *bar = QAccessible::queryAccessibleInterface(user->control("notice"));
    EXPECT_EQ(bar->text(QAccessible::Name), "Notice");
    EXPECT_EQ(bar->role(), QAccessible::Grouping);
    change({{"lineName", "NTE"}, {"lineIndex", "1"}, {"lineMessageIndex", "4"}});
    EXPECT_EQ(notice(), "Line NTE(1) added with message index 4.");
    user->click("change");
    EXPECT_EQ(notice(), "Nothing was changed: the record is as it was.");
    change({{"lineName", "OBX"}, {"lineIndex", "2"}, {"lineMessageIndex", "5"}});
    EXPECT_EQ(notice(), "Line OBX(2) changed: message index 3 → 5. Its 2 fields keep message index 3.");
    EXPECT_EQ(buttons(), "Move its fields");
    user->click("noticeButton1");
    EXPECT_EQ(fieldTexts(), QStringList({"1.1 Set ID", "5.6 Value", "5.7 Units"}));
    EXPECT_EQ(notice(), "The fields of line OBX(2) have message index 5 now.");
    user->click("noticeButton1");
    EXPECT_EQ(fieldTexts(), QStringList({"1.1 Set ID", "3.6 Value", "3.7 Units"}));
    EXPECT_EQ(notice(), "Undone: move of the fields of OBX(2).");
    user->showPage(0);
    user->fill({{"lineName", "OBR"}, {"lineIndex", "0"}});
    remove();
    EXPECT_EQ(notice(), "Line OBR removed, the lines behind it renumbered.");
    user->click("noticeButton1");
    EXPECT_EQ(lineTexts(), QStringList({"PID(1)=1", "OBR(0)=2", "OBX(2)=5", "NTE(1)=4"}));
}

TEST_P(NoticeTest, TellsWhatAFieldsChangeDidAndCuresIt)
{
    user->clickNode("3.6 Value(1)");
    change({{"fieldIndex", "2"}});
    EXPECT_EQ(notice(),
              "Field Value(2) added at 3.6, where Value(1) already is; the tree shows only one of them.");
    EXPECT_EQ(buttons(), "Move to 3.8");
    user->click("noticeButton1");
    EXPECT_EQ(notice(), "Field Value(2) changed: position 6 → 8.");
    EXPECT_EQ(user->selectedNode(), "3.8 Value(2)");
    change({{"fieldName", "Other"}, {"fieldLine", "OXB(1)"}, {"position", "9"}});
    EXPECT_EQ(notice(), "Field Other(2) added to line OXB(1), which does not exist in this configuration.");

    user->clickNode("1.1 Set ID");
    change({{"fieldLine", "OBX(2)"}, {"fieldMessageIndex", "3"}});
    EXPECT_EQ(notice(),
              "Field Set ID moved from PID(1) to OBX(2). Its row under PID(1) stays in the database.");
    EXPECT_EQ(buttons(), "Undo|Add as Set ID(1) instead");
    user->click("noticeButton2");
    EXPECT_EQ(lineOf("Set ID") + lineOf("Set ID", 1), "PID(1)OBX(2)");
    EXPECT_EQ(notice(), "Field Set ID(1) added at 3.1.");
    remove();
    EXPECT_EQ(notice(), "Field Set ID(1) removed.");
}

// Faults: what was typed is gone without a word, or comes back as something else; a word although nothing was
// typed.
TEST_P(NoticeTest, BringsBackWhatWasTyped)
{
    user->clickNode("3.6 Value(1)");
    user->clickNode("3.7 Units");
    EXPECT_EQ(notice(), "Loaded: 3 lines and 3 fields.");
    user->fill({{"fieldName", "Draft"}, {"constant", "new"}});
    user->click("fixedLength");
    user->clickNode("1 PID(1)");
    EXPECT_EQ(notice(), "Loaded: 3 lines and 3 fields.") << "the page of fields still holds it";
    user->clickNode("1.1 Set ID");
    EXPECT_EQ(notice(), "The entries typed for Draft were not stored.");
    user->click("noticeButton1");
    EXPECT_EQ(user->texts({"fieldName", "fieldLine", "constant", "position"}), "Draft|OBX(2)|new|7");
    EXPECT_TRUE(user->control("padSpaces")->isEnabled());
    user->click("change");
    user->clickNode("3 OBX(2)");
    EXPECT_EQ(notice(), "Field Draft added at 3.7, where Units already is; the tree shows only one of them.");
}

TEST_P(NoticeTest, TellsWhatASaveWrote)
{
    change({{"lineName", "NTE"}, {"lineIndex", "1"}, {"lineMessageIndex", "4"}});
    change({{"lineName", "OBR"}, {"lineIndex", "0"}, {"lineMessageIndex", "7"}});
    user->clickNode("3.7 Units");
    remove();
    user->click("save");
    EXPECT_EQ(notice(), "Saved: 1 added, 1 changed, 1 removed.");
    user->click("save");
    EXPECT_EQ(notice(), "Saved; there were no changes.");
    user->showPage(0);
    change({{"lineName", "NTE"}, {"lineIndex", "1"}, {"lineMessageIndex", "5"}});
    database.run("ALTER TABLE LabLineConfig RENAME TO Away");
    user->click("save");
    EXPECT_EQ(notice(), "Saved with 4 errors; 1 change is still unsaved.");
    user->click("noticeButton1");
    ASSERT_EQ(ui::Window::loadedWindows().size(), 2U);
    database.run("ALTER TABLE Away RENAME TO LabLineConfig");
}

// Faults: a change that is not listed, or after it was taken back still is; one taken back that takes others
// with it, or leaves a row behind or without its record.
TEST_P(NoticeTest, TakesBackWhatIsSelected)
{
    const QStringList linesBefore = lineTexts(), fieldsBefore = fieldTexts();
    change({{"lineName", "NTE"}, {"lineIndex", "1"}, {"lineMessageIndex", "4"}});
    user->fill({{"lineName", "OBR"}, {"lineIndex", "0"}});
    remove();
    user->clickNode("2.6 Value(1)");
    change({{"constant", "new"}});
    user->clickNode("2.7 Units");
    remove();
    user->control("configuration")->setFocus();
    user->press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(user->text("configuration"), "Standard") << "the key is not the entry's";
    ASSERT_EQ(ui::Window::loadedWindows().size(), 2U);
    Driver unsaved(*ui::Window::loadedWindows()[1]);
    auto *list = static_cast<QTreeView *>(unsaved.control("unsavedList"));
    QStringList rows;
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        for (int column = 0; column < 4; column += column == 0 ? 2 : 1)
            rows += list->model()->index(row, column).data(Qt::AccessibleTextRole).toString();
    }
    EXPECT_EQ(rows.join(u'|'),
              "Removed|Line OBR|Message Index 2|"
              "Changed|Line OBX(2)|Message Index 3 → 2|"
              "Changed|Field Value(1) of OBX(2)|Message Index 3 → 2, Constant \"x\" → \"new\"|"
              "Added|Line NTE(1)|Message Index 3|"
              "Removed|Field Units of OBX(2)|Message Index 3, Position 7, Constant \"x\"");
    list->setCurrentIndex(list->model()->index(2, 0));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(user->texts({"fieldName", "constant"}), "Value|new") << "shown in the editor";
    list->selectAll();
    unsaved.click("revert");
    EXPECT_EQ(lineTexts(), linesBefore);
    EXPECT_EQ(fieldTexts(), fieldsBefore);
    EXPECT_EQ(list->model()->rowCount(), 0);
    EXPECT_TRUE(fields().removed().empty());
    EXPECT_EQ(notice(), "Taken back: 5 changes.");
    user->click("noticeButton1");
    EXPECT_EQ(list->model()->rowCount(), 5);
    unsaved.press(Qt::Key_Escape);
    EXPECT_EQ(ui::Window::loadedWindows().size(), 1U);
}

// Fault: a user who believes in a file that can not be written, or is told so after every change.
TEST_P(NoticeTest, TellsOnceThatNothingCanBeKept)
{
    QDir(stateFolder()).removeRecursively();
    QFile inItsPlace(stateFolder());
    ASSERT_TRUE(inItsPlace.open(QIODevice::WriteOnly));
    change({{"lineName", "NTE"}, {"lineIndex", "1"}, {"lineMessageIndex", "4"}});
    const QString told = "Line NTE(1) added with message index 4. A crash would lose it: " + stateFolder() +
                         " can not be written.";
    EXPECT_TRUE(QTest::qWaitFor([&] { return notice() == told; }, 1000)) << notice().toStdString();
    change({{"lineMessageIndex", "5"}});
    EXPECT_FALSE(document->keepUnsavedChanges());
    EXPECT_EQ(notice(), "Line NTE(1) changed: message index 4 → 5.");
    inItsPlace.remove();
}

// Faults: a match that is not shown, one left out, a search that goes on where records have gone.
TEST_P(NoticeTest, FindsWhatRecordsHold)
{
    user->press(Qt::Key_F, Qt::ControlModifier);
    user->type("find", "obx");
    EXPECT_EQ(user->text("findCount"), "3 found");
    user->press(Qt::Key_Return);
    EXPECT_EQ(user->selectedNode() + user->text("findCount"), "3 OBX(2)1 of 3");
    user->press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(user->selectedNode() + user->text("fieldName"), "3.7 UnitsUnits");
    user->press(Qt::Key_F3);
    EXPECT_EQ(user->text("lineName"), "OBX");
    user->press(Qt::Key_Escape);
    EXPECT_TRUE(user->control("find")->isHidden() || !user->control("find")->isVisible());
}

// Faults: a issue that stays when it is fixed, a fix that cannot be undone.
TEST_P(NoticeTest, ChecksAndMovesFields)
{
    change({{"lineName", "OBX"}, {"lineIndex", "2"}, {"lineMessageIndex", "5"}});
    user->press(Qt::Key_F8);
    ASSERT_EQ(ui::Window::loadedWindows().size(), 2U);
    Driver check(*ui::Window::loadedWindows()[1]);
    auto *list = static_cast<QTreeView *>(check.control("issues"));
    const int found = list->model()->rowCount();
    ASSERT_GE(found, 1);
    for (int row = 0; row < found && check.text("fix") != "&Move its fields"; ++row)
        list->setCurrentIndex(list->model()->index(row, 0));
    check.click("fix");
    EXPECT_EQ(fieldTexts(), QStringList({"1.1 Set ID", "5.6 Value", "5.7 Units"}));
    EXPECT_LT(list->model()->rowCount(), found);
    user->click("noticeButton1");
    EXPECT_EQ(list->model()->rowCount(), found);
}

ON_EVERY_ENGINE(NoticeTest);

} // namespace varnow::test
