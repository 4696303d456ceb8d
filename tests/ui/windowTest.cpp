// What windows share: their unloading, the hourglass over them, and the message box.

#include "support/MessageLog.h"

#include "base/names.h"
#include "ui/Application.h"
#include "ui/Window.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <optional>

namespace varnow::test {

// A window that is forgotten, unloaded without its handlers, or against its will; an unload that unloads
// others meanwhile; a program that goes on without windows.
TEST(WindowTest, UnloadsWithAllOthersUnlessItRefuses)
{
    using enum ui::CloseDecision;
    ui::Window first("first", "", 1000, 1000);
    ui::Window stubborn("stubborn", "", 1000, 1000);
    ui::Window last("last", "", 1000, 1000);
    int asked = 0;
    first.onCloseRequest = [&] { return last.unload(), Close; };
    stubborn.onCloseRequest = [] { return StayOpen; };
    last.onCloseRequest = [&] { return ++asked, Close; };
    for (ui::Window *shown : {&stubborn, &first, &last})
        shown->show();
    QTimer::singleShot(0, [&] {
        ui::Window::unloadAll();
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(ui::Window::loadedWindows(), std::vector<ui::Window *>{&stubborn});
        stubborn.onCloseRequest = nullptr;
        ui::Window::unloadAll();
    });
    ui::runUntilNoWindowIsLoaded();
    EXPECT_TRUE(ui::Window::loadedWindows().empty());
}

// An hourglass that ends with the first of several guards, or needs as many resets as it was set.
TEST(HourglassTest, StaysUntilTheOutermostGuardIsGone)
{
    std::optional<ui::Hourglass> outermost(std::in_place);
    std::optional<ui::Hourglass>(std::in_place).reset();
    EXPECT_TRUE(ui::Hourglass::isShown());
    outermost.reset();
    EXPECT_FALSE(ui::Hourglass::isShown());
}

TEST(MessageBoxTest, ShowsButtonsIconDefaultAndPlainText)
{
    const auto press = [](Qt::Key key, ui::Icon icon, ui::Buttons buttons = ui::Buttons::Ok) {
        QTimer::singleShot(0, [=] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), "<b>&\tx</b>");
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            const QMessageBox::Icon icons[] = {QMessageBox::NoIcon, QMessageBox::Critical,
                                               QMessageBox::Question, QMessageBox::Information};
            EXPECT_EQ(box->icon(), icons[static_cast<int>(icon)]);
            EXPECT_FALSE(ui::Hourglass::isShown());
            QTest::keyClick(box, key);
        });
        return ui::show({"<b>&\tx</b>", "Title", icon, buttons});
    };
    const auto before = ui::setMessageBoxHandler({});
    std::optional<ui::Hourglass> work(std::in_place);
    EXPECT_EQ(press(Qt::Key_Return, ui::Icon::None), ui::Answer::Ok);
    EXPECT_EQ(press(Qt::Key_Escape, ui::Icon::Critical), ui::Answer::Ok);
    EXPECT_EQ(press(Qt::Key_Return, ui::Icon::Question, ui::Buttons::YesNo), ui::Answer::Yes);
    EXPECT_EQ(press(Qt::Key_Escape, ui::Icon::Question, ui::Buttons::YesNo), ui::Answer::No);
    EXPECT_EQ(press(Qt::Key_Return, ui::Icon::Question, ui::Buttons::YesNoCancel), ui::Answer::Cancel);
    EXPECT_EQ(press(Qt::Key_Escape, ui::Icon::Question, ui::Buttons::YesNoCancel), ui::Answer::Cancel);
    EXPECT_TRUE(ui::Hourglass::isShown()); // the work goes on
    work.reset();
    EXPECT_EQ(press(Qt::Key_Return, ui::Icon::Information), ui::Answer::Ok);
    EXPECT_FALSE(ui::Hourglass::isShown());
    ui::setMessageBoxHandler(before);
}

// A line that is wrapped loses the indent that shows what belongs together.
TEST(MessageBoxTest, WrapsOnlyLinesThatDoNotFitTheScreen)
{
    const int screen = QApplication::primaryScreen()->availableSize().width();
    const auto lines = [](const QString &text) {
        int found = 0;
        QTimer::singleShot(0, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            auto *label = box->findChild<QLabel *>("qt_msgbox_label");
            EXPECT_LE(label->geometry().right(), box->width());
            EXPECT_LE(label->geometry().bottom(), box->height());
            found = label->height() / label->fontMetrics().lineSpacing();
            QTest::keyClick(box, Qt::Key_Return);
        });
        ui::show({text});
        return found;
    };
    const auto before = ui::setMessageBoxHandler({});
    const int letter = QFontMetrics(QApplication::font()).horizontalAdvance(u'x');
    EXPECT_EQ(lines(QString(screen * 8 / 10 / letter / 2, u'x').replace("x", "x ") + "\r\n  indented"), 2);
    EXPECT_GE(lines(QString(screen / letter, u'x').replace("x", "x ")), 2);
    ui::setMessageBoxHandler(before);
}

// A name that makes a box wider or higher than the screen, where its buttons cannot be reached; a name of
// usual length that is shortened.
TEST(MessageBoxTest, FitsTheScreenWhateverTheNamesInIt)
{
    const QSize screen = QApplication::primaryScreen()->availableSize();
    QString text;
    const auto showAndLook = [&](const QString &whole) {
        QTimer::singleShot(0, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            EXPECT_LE(box->frameGeometry().width(), screen.width());
            EXPECT_LE(box->frameGeometry().height(), screen.height());
            EXPECT_EQ(box->toolTip().isEmpty(), box->text() == whole);
            EXPECT_EQ(box->accessibleDescription(), box->text() == whole ? "" : withoutIsolation(whole));
            text = box->text();
            QTest::keyClick(box, Qt::Key_Return);
        });
        ui::show({whole});
        return withoutIsolation(text);
    };
    const auto before = ui::setMessageBoxHandler({});
    EXPECT_EQ(showAndLook("Of " + isolated("a name") + '.'), "Of a name.");
    const QString name =
        showAndLook("Of " + isolated(QString(100'000, u'a').replace(500, 9, " b b b b ")) + '.');
    EXPECT_TRUE(name.startsWith("Of aaa") && name.endsWith("aaa.") && name.size() < 70) << name.toStdString();
    const QString path = showAndLook("The file /" + QString(100'000, u'W') + "/end could not be read.");
    EXPECT_TRUE(path.startsWith("The file /W") && path.endsWith("W/end could not be read."));
    const QString lines = showAndLook("First" + QString("\r\nline").repeated(1000) + "\r\nLast");
    EXPECT_TRUE(lines.startsWith("First") && lines.endsWith("Last"));
    ui::setMessageBoxHandler(before);
}

// A reminder of the buttons that is missing or stands alone, or an answer taken for another one.
TEST(MessageBoxTest, RemindsOfTheButtonsBelowAText)
{
    const QString reminded = "Text\r\nPlease select 'Yes', 'No' or 'Cancel'";
    MessageLog messages;
    for (const ui::Answer answer : {ui::Answer::Yes, ui::Answer::No, ui::Answer::Cancel}) {
        messages.answerWith(answer);
        EXPECT_EQ(ui::askYesNo("", "Sure"), answer == ui::Answer::Yes);
        messages.answerWith(answer);
        EXPECT_EQ(ui::askYesNoCancel("Text", "Sure"), answer);
        EXPECT_EQ(messages.take(),
                  (Boxes{question("", "Sure"), question(reminded, "Sure", ui::Buttons::YesNoCancel)}));
    }
}

} // namespace varnow::test
