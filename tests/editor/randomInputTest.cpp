// Fault: a key or a click, in whatever order and window, that crashes the program. What it does depends on
// how fast the machine is, so it runs on demand: VARNOW_RANDOM_SECONDS says for how long, VARNOW_RANDOM_SEED
// chooses other input.

#include "editor/EditorTest.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <random>

namespace varnow::test {

struct RandomInputTest : EditorTest
{
    RandomInputTest()
    {
        for (int i = 1; i <= 6; ++i) {
            addLine(QStringLiteral("L%1").arg(i), i % 2, i == 5 ? 4 : i);
            for (int k = 1; k <= 3; ++k)
                addField(QStringLiteral("L%1").arg(i), i % 2, i, k, QStringLiteral("F%1").arg(k), i);
        }
        random.seed(static_cast<unsigned>(qEnvironmentVariableIntValue("VARNOW_RANDOM_SEED")));
    }

    int pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    template <class List> auto oneOf(const List &list)
    {
        return list[static_cast<typename List::size_type>(pick(static_cast<int>(list.size())))];
    }

    void clickSomewhere(QWidget *window)
    {
        QList<QWidget *> shown;
        for (QWidget *widget : window->findChildren<QWidget *>()) {
            if (widget->isVisible() && widget->isEnabled() && !widget->isWindow())
                shown += widget;
        }
        if (shown.isEmpty())
            return;
        QWidget *widget = oneOf(shown);
        const QPoint place(pick(std::max(1, widget->width())), pick(std::max(1, widget->height())));
        if (pick(6) == 0)
            QTest::mouseDClick(widget, Qt::LeftButton, {}, place);
        else
            QTest::mouseClick(widget, Qt::LeftButton, {}, place);
    }

    void pressSomething(QWidget *window)
    {
        static const QList<int> keys{Qt::Key_Tab,  Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,
                                     Qt::Key_Down, Qt::Key_Left,   Qt::Key_Space,  Qt::Key_Delete,
                                     Qt::Key_Home, Qt::Key_End,    Qt::Key_F2,     Qt::Key_F3,
                                     Qt::Key_F8,   Qt::Key_F11,    Qt::Key_F12,    Qt::Key_A,
                                     Qt::Key_1,    Qt::Key_9,      Qt::Key_PageUp, Qt::Key_F1};
        static const QString letters("CUZYFSRXHDLMTAN");
        QWidget *target = window->focusWidget() != nullptr ? window->focusWidget() : window;
        switch (pick(4)) {
        case 0:
            QTest::keyClick(target, static_cast<Qt::Key>(oneOf(letters).unicode()), Qt::ControlModifier);
            break;
        case 1:
            QTest::keyClick(target, static_cast<Qt::Key>(oneOf(letters).unicode()), Qt::AltModifier);
            break;
        default:
            QTest::keyClick(target, static_cast<Qt::Key>(oneOf(keys)));
        }
    }

    std::mt19937 random;
};

TEST_P(RandomInputTest, EndsNothing)
{
    const int seconds = qEnvironmentVariableIntValue("VARNOW_RANDOM_SECONDS");
    if (seconds == 0)
        GTEST_SKIP() << "runs on demand";
    ui::setMessageBoxHandler([this](const Box &box) {
        switch (box.buttons) {
        case ui::Buttons::YesNo:
            return pick(2) > 0 ? ui::Answer::Yes : ui::Answer::No;
        case ui::Buttons::YesNoCancel:
            return pick(3) > 0 ? ui::Answer::Cancel : pick(2) > 0 ? ui::Answer::Yes : ui::Answer::No;
        default:
            return ui::Answer::Ok;
        }
    });
    open({"Standard", "Other"});
    QTimer closing; // windows that wait for an answer, file dialogs among them
    closing.callOnTimeout([] {
        if (QWidget *modal = QApplication::activeModalWidget(); modal != nullptr)
            modal->close();
        if (QWidget *popup = QApplication::activePopupWidget(); popup != nullptr)
            popup->close();
    });
    closing.start(30);
    QElapsedTimer time;
    for (time.start(); time.elapsed() < 1000 * seconds;) {
        if (!editor->isLoaded())
            editor->show();
        ui::Window *window = oneOf(ui::Window::loadedWindows());
        QWidget *widget = window->surface()->window();
        widget->activateWindow();
        pick(3) == 0 ? clickSomewhere(widget) : pressSomething(widget);
        QApplication::processEvents();
    }
    for (ui::Window *window : ui::Window::loadedWindows())
        window->surface()->window()->hide();
    messages.take();
}

ON_EVERY_ENGINE(RandomInputTest);

} // namespace varnow::test
