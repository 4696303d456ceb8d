// Windows around a list: laid out in any font, used with the keys alone.

#include "support/Driver.h"

#include "ui/Label.h"
#include "ui/ListWindow.h"
#include "ui/Table.h"

#include <QApplication>
#include <QPushButton>
#include <QScreen>

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

struct Form : ui::ListWindow
{
    Form() : ui::ListWindow("form", "Form", {60, 12})
    {
        arrange({.above = {&all, &result}, .content = {&list}, .buttons = {&fix, &again}});
    }

    ui::CheckBox all{*this, "all", "&All"};
    ui::Label result{*this, "result", ""};
    ui::Table list{*this, "list", {"Name"}};
    ui::CommandButton fix{*this, "fix", "&Fix"};
    ui::CommandButton again{*this, "again", "A&gain"};
};

struct ListWindowTest : testing::Test
{
    ~ListWindowTest() override { setFont(before.pointSize()); }

    void setFont(int points) const
    {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        for (int round = 0; round < 2; ++round) // the controls learn of it first
            QApplication::processEvents();
    }

    /// Makes the window as small as it can be, and tells whose caption is cut off then, or covered.
    QStringList cutOffWhenSmallest(const Driver &user) const
    {
        QWidget *window = user.control("list")->window();
        window->resize(1, 1);
        QApplication::processEvents();
        QStringList names;
        for (const QString name : {"all", "fix", "again", "close"}) {
            const QWidget *control = user.control(name);
            const QRect place(control->mapTo(window, QPoint()), control->size());
            if (control->width() < control->sizeHint().width() || !window->rect().contains(place))
                names += name;
        }
        return names;
    }

    const QFont before = QApplication::font();
};

} // namespace

TEST_F(ListWindowTest, ShowsCaptionsWholeWhenSmallest)
{
    for (const int points : {9, 14}) {
        setFont(points);
        Form form;
        const Driver user(form);
        EXPECT_EQ(cutOffWhenSmallest(user), QStringList());
        form.fix.setCaption("&Move its fields");
        QApplication::processEvents();
        EXPECT_EQ(cutOffWhenSmallest(user), QStringList());
        setFont(points + 4);
        EXPECT_EQ(cutOffWhenSmallest(user), QStringList());
    }
}

// A result that tells of a very long name, or a font for which the screen is too small.
TEST_F(ListWindowTest, NeverAsksForMoreThanTheScreenHas)
{
    Form form;
    const Driver user(form);
    const QWidget *window = user.control("list")->window();
    const int least = window->minimumWidth();
    form.result.setCaption(QString(10'000, u'x'));
    QApplication::processEvents();
    EXPECT_EQ(window->minimumWidth(), least);
    form.fix.setCaption(QString(10'000, u'x'));
    setFont(60);
    const QSize screen = QApplication::primaryScreen()->availableSize();
    EXPECT_LE(window->minimumWidth(), screen.width());
    EXPECT_LE(window->minimumHeight(), screen.height());
    EXPECT_LE(window->width(), screen.width());
}

TEST_F(ListWindowTest, IsWalkedAndClosedWithTheKeys)
{
    Form form;
    const Driver user(form);
    QStringList walked{user.focused()};
    for (int i = 0; i < 4; ++i) {
        user.press(Qt::Key_Tab);
        walked += user.focused();
    }
    EXPECT_EQ(walked, QStringList({"list", "all", "fix", "again", "close"}));
    user.press(Qt::Key_Escape);
    EXPECT_FALSE(form.isLoaded());
}

} // namespace varnow::test
