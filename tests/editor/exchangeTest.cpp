// Files that are dropped on the editor, what its import shows of them, and what it exports.

#include "editor/EditorTest.h"
#include "support/fileDialog.h"

#include "base/names.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

namespace varnow::test {

struct ExchangeTest : EditorTest
{
    ExchangeTest()
    {
        addLine("PID", 1, 1);
        addField("PID", 1, 1, 1, "Set ID");
        open();
    }

    QString path(const QString &name) const { return QDir(folder.path()).filePath(name); }

    void write(const QString &name, const QByteArray &contents) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Drops files on an entry, and does something as soon as the window that shows them is open.
    void drop(const QStringList &names, const std::function<void(const Driver &importing)> &act)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &name : names)
            urls += QUrl::fromLocalFile(path(name));
        data.setUrls(urls);
        data.setText("files");
        QWidget *entry = user->control("lineName");
        const QPoint place = entry->mapTo(entry->window(), entry->rect().center());
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(entry, &enter);
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(entry, &event);
        whenLoaded("importing", [&act](ui::Window &window) { act(Driver(window)); });
        QCoreApplication::processEvents();
    }

    static QStringList rowsOf(const Driver &importing)
    {
        const QAbstractItemModel &shown = *static_cast<QTreeView *>(importing.control("importList"))->model();
        QStringList rows;
        for (int row = 0; row < shown.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < shown.columnCount(); ++column)
                cells += shown.index(row, column).data(Qt::AccessibleTextRole).toString();
            rows += cells.join('|');
        }
        return rows;
    }

    /// As desktops do it when a dialog is closed.
    void comeToFront()
    {
        editor->surface()->window()->activateWindow();
        QCoreApplication::processEvents();
        user->control("lineName")->setFocus();
    }

    QString notice() const { return withoutIsolation(user->control("noticeSentence")->accessibleName()); }

    QTemporaryDir folder;
};

// Faults: rows that the preview does not show, an import in halves, one that cannot be undone.
TEST_P(ExchangeTest, ImportsWhatIsDropped)
{
    write("a.csv", "Name,NameIndex,MsgIndex\nOBR,0,2\nPID,1,1\nPID,x,3\n");
    write("b.csv", "Name,Line,LineIndex,Position,Constant\nSet ID,PID,1,1,y\n");
    drop({"a.csv", "b.csv", "none.csv"}, [this](const Driver &importing) {
        EXPECT_EQ(unexplained(*importing.control("import")->window()), QStringList());
        const QStringList rows = rowsOf(importing);
        EXPECT_TRUE(rows.value(0).startsWith("Not read||||")) << qPrintable(rows.value(0));
        EXPECT_TRUE(rows.value(1).startsWith("Refused|a.csv 4|Standard|Line PID"));
        EXPECT_EQ(rows.mid(2), QStringList({"Added|a.csv 2|Standard|Line OBR|Message Index 2",
                                            "Unchanged|a.csv 3|Standard|Line PID(1)|",
                                            "Changed|b.csv 2|Standard|Field Set ID of PID(1)|"
                                            "Constant \"x\" → \"y\""}));
        EXPECT_EQ(importing.text("result"), "1 added, 1 changed, 1 unchanged, 1 refused");
        answerFileDialogs({path("left")});
        importing.click("saveRefused");
        importing.click("import");
    });
    EXPECT_TRUE(read("left.csv").contains(",x,3,"));
    EXPECT_EQ(lineTexts(), QStringList({"PID(1)=1", "OBR(0)=2"}));
    EXPECT_EQ(fields()[0].constant, "y");
    EXPECT_EQ(user->tree().join('|'), "1 PID(1)|  1.1 Set ID|2 OBR");
    EXPECT_EQ(notice(), "Imported: 1 added, 1 changed; not saved yet. 1 row was refused.");
    user->click("noticeButton1");
    EXPECT_EQ(lineTexts(), QStringList("PID(1)=1"));
    EXPECT_EQ(fields()[0].constant, "x");
    EXPECT_EQ(model().countUnsaved().total(), 0);
}

TEST_P(ExchangeTest, ImportsIntoAnotherConfigurationOrNothingAtAll)
{
    write("a.csv", "Configuration,Name,MsgIndex\nOther,OBR,1\n");
    drop({"a.csv"}, [](const Driver &importing) { importing.press(Qt::Key_Escape); });
    EXPECT_EQ(lineTexts(), QStringList("PID(1)=1"));
    drop({"a.csv"}, [](const Driver &importing) {
        importing.click("intoCurrent");
        EXPECT_TRUE(rowsOf(importing).value(0).startsWith("Note||||Lines would share a message index"));
        importing.click("intoCurrent");
        importing.click("import");
    });
    EXPECT_EQ(user->text("configuration"), "Other");
    EXPECT_EQ(user->tree().join('|'), "1 OBR");
}

// Faults: a file that the user corrected meanwhile is not read again, a new configuration that shows entries
// of another, an open picture of what is no longer shown.
TEST_P(ExchangeTest, ReadsACorrectedFileAgainIntoANewConfiguration)
{
    user->press(Qt::Key_F11);
    comeToFront();
    whenLoaded("target", [](ui::Window &window) {
        const Driver target(window);
        target.type("target", "New");
        target.press(Qt::Key_Return);
    });
    for (QAction *entry : editor->surface()->window()->findChildren<QAction *>()) {
        if (entry->text() == "&New…")
            entry->trigger();
    }
    EXPECT_EQ(user->texts({"configuration", "lineName", "lineIndex", "lineMessageIndex", "fieldName"}),
              "New|||1|");
    EXPECT_EQ(notice(), "Configuration New is shown. It is saved with its first line.");
    write("a.csv", "Record,Name,MsgIndex,Line,Position,Constant,FixedLength,ValidationString,Length\n"
                   "Line,PID,1,,,,,,\nField,A,,PID,1,x,1,1,\n");
    drop({"a.csv"}, [this](const Driver &importing) {
        EXPECT_EQ(importing.text("result"), "1 added, 0 changed, 0 unchanged, 1 refused");
        messages.answerWith(ui::Answer::Yes); // to replace it
        answerFileDialogs({path("a.csv")});
        importing.click("saveRefused");
        QByteArray corrected = read("a.csv");
        write("a.csv", corrected.replace(",PID,1,,x,", ",PID,1,7,x,") + "Line,PID,1\n");
        answerFileDialogs({path("a.csv")});
        importing.click("addFiles");
        EXPECT_EQ(importing.text("result"), "2 added, 0 changed, 0 unchanged, 0 refused");
        importing.click("import");
    });
    EXPECT_EQ(user->tree().join('|'), "1 PID|  1.1 A");
    const Field &field = fields()[fields().find("New", "A", 0)];
    EXPECT_EQ(field.padCharacter + QString::number(field.padDirection) + field.dataType, " 1String");
    ui::Window *layout = ui::Window::loadedWindows().back();
    EXPECT_EQ(withoutIsolation(Driver(*layout).text("line")), "Line PID");
    EXPECT_EQ(document->undoable()->text(), "import of 2 records");
}

// Faults: a format other than the name's, an older file replaced without a word.
TEST_P(ExchangeTest, ExportsInTheFormatOfTheName)
{
    comeToFront();
    const auto exportTo = [this](const QStringList &paths) {
        answerFileDialogs(paths);
        user->press(Qt::Key_E, Qt::ControlModifier);
        comeToFront();
    };
    for (const auto &[name, written, beginning] :
         std::initializer_list<std::array<const char *, 3>>{{"a v2.5", "a v2.5.csv", "\xEF\xBB\xBFRecord,"},
                                                            {"a.PDF", "a.PDF", "%PDF-"},
                                                            {"a.html", "a.html", "<!DOCTYPE html>"},
                                                            {"a.xlsx", "a.xlsx", "PK"}}) {
        exportTo({path(name)});
        EXPECT_TRUE(read(written).startsWith(beginning)) << name;
        EXPECT_EQ(notice(), "Exported Standard to " + path(written) + '.');
    }
    const QByteArray before = read("a v2.5.csv");
    user->fill({{"lineName", "OBR"}, {"lineIndex", "0"}, {"lineMessageIndex", "2"}});
    user->click("change");
    messages.answerWith(ui::Answer::No);
    exportTo({path("a v2.5"), QString()}); // asks with the ending, and for another name
    EXPECT_EQ(read("a v2.5.csv"), before);
    messages.answerWith(ui::Answer::Yes);
    exportTo({path("a v2.5.csv")});
    EXPECT_TRUE(read("a v2.5.csv").contains("OBR,0,2,"));
    exportTo({"/proc/a.csv"});
    const Boxes boxes = messages.take();
    ASSERT_EQ(boxes.size(), 3);
    EXPECT_TRUE(boxes.back().text.startsWith("The file /proc/a.csv could not be written: "));
}

ON_ENGINES(ExchangeTest, Engine::Sqlite);

} // namespace varnow::test
