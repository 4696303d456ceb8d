// How large windows and their controls are: in any font, on any screen.

#include "support/Driver.h"

#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/TabControl.h"
#include "ui/TextBox.h"

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

/// The places that are the tightest for their captions in all windows, and the editor's least size.
struct TightWindow : ui::Window
{
    TightWindow() : ui::Window("tight", "Tight", 6000, 4000)
    {
        onResize = [this] { enforceMinimumSize(leastWidth, leastHeight); };
    }

    static constexpr float leastWidth = 7700;
    static constexpr float leastHeight = 7900;

    ui::Frame frame{*this, "frame", "", {0, 0, 2145, 2025}};
    ui::CheckBox check{frame, "check", "Fixed Length Field", {60, 120, 2025, 285}};
    ui::Labelled<ui::TextBox> entry{
        frame, "entry", "Character Position", {60, 490, 1290, 195}, {1410, 430, 675, 315}};
    ui::Frame align{frame, "align", "Align", {60, 1110, 1000, 855}};
    ui::OptionButton right{align, "right", "Right", {60, 255, 850, 225}};
    ui::OptionButton left{align, "left", "Left", {60, 540, 850, 225}};
    ui::Labelled<ui::ComboBox> list{
        *this, "list", "Configuration", {0, 2200, 930, 195}, {960, 2140, 1245, 315}};
};

/// The desktop's font, and back again.
struct ScaleTest : testing::Test
{
    ~ScaleTest() override { setFont(before.pointSize()); }

    void setFont(int points) const
    {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        for (int round = 0; round < 2; ++round) // the controls learn of it first
            QApplication::processEvents();
    }

    static QSize outerSize(ui::Window &window) { return window.surface()->window()->frameGeometry().size(); }
    static QSize screenSize() { return QApplication::primaryScreen()->availableSize(); }

    const QFont before = QApplication::font();
};

void expectWholeCaptions(const Driver &user)
{
    for (const QString name : {"check", "right", "left", "entryLabel", "listLabel"}) {
        const QWidget *control = user.control(name);
        EXPECT_GE(control->width(), control->sizeHint().width()) << qPrintable(name);
        EXPECT_GE(control->height(), control->fontMetrics().height()) << qPrintable(name);
    }
    for (const QString name : {"entry", "list"})
        EXPECT_GE(user.control(name)->height(), user.control(name)->fontMetrics().height() + 4);
    const auto letters = [&user](const QString &name) {
        const QWidget *control = user.control(name);
        const int height = control->fontMetrics().tightBoundingRect("fg").height();
        return QRect(0, control->geometry().center().y() - height / 2, 1, height);
    };
    EXPECT_FALSE(letters("right").intersects(letters("left")));
    EXPECT_GE(letters("right").top(), user.control("align")->fontMetrics().height());
}

} // namespace

// A caption cut off, or a window that a small screen cannot show: 1366 x 768 up to 12 points, 1280 x 720 (a
// large screen at 150 %) up to 10, 1920 x 1080 at 14.
TEST_F(ScaleTest, ShowsCaptionsWholeOnSmallScreens)
{
    for (const auto &[points, width, height] : {std::tuple(9, 1024, 720), std::tuple(10, 1024, 720),
                                                std::tuple(12, 1366, 768), std::tuple(14, 1920, 1080)}) {
        SCOPED_TRACE(points);
        setFont(points);
        TightWindow window;
        const Driver user(window);
        expectWholeCaptions(user);
        EXPECT_LE(TightWindow::leastWidth * window.scale().x, width);
        EXPECT_LE(TightWindow::leastHeight * window.scale().y, height);
    }
}

TEST_F(ScaleTest, WidensOneDirectionAlone)
{
    setFont(8);
    ui::Window window("window", "", 3000, 3000);
    const ui::Label label(window, "label", QString(25, u'W'), {0, 0, 1500, 225});
    const Driver user(window);
    EXPECT_GE(window.surface()->width(), 2 * label.widget()->sizeHint().width());
    EXPECT_NEAR(window.surface()->height(), 200, 1);
}

TEST_F(ScaleTest, NeverAsksForMoreThanTheScreenHas)
{
    setFont(9);
    TightWindow window;
    window.onResize = [&] { window.enforceMinimumSize(20'000, 30'000); };
    const Driver user(window);
    QApplication::processEvents();
    EXPECT_EQ(outerSize(window), screenSize());
    setFont(20);
    EXPECT_EQ(outerSize(window), screenSize());
}

TEST_F(ScaleTest, FollowsTheDesktopsFontAndKeepsTheUsersSize)
{
    setFont(8);
    TightWindow window;
    const Driver user(window);
    QApplication::processEvents();
    const QSize users(700, 650);
    window.surface()->window()->resize(users);
    setFont(9);
    EXPECT_EQ(window.surface()->window()->size(), users);
    setFont(11);
    expectWholeCaptions(user);
    EXPECT_GT(window.surface()->height(), 0);
    const float height = TightWindow::leastHeight * window.scale().y;
    EXPECT_GE(outerSize(window).height() + 1, std::min(qRound(height), screenSize().height()));
    setFont(8);
    EXPECT_LT(window.surface()->window()->minimumHeight(), users.height());
}

TEST_F(ScaleTest, ScrollsAPageThatNeedsMoreRoom)
{
    setFont(9);
    ui::Window window("window", "", 4000, 4000);
    ui::TabControl tabs(window, "tabs", {0, 0, 3000, 2000});
    ui::Container &page = tabs.addPage("One");
    ui::TextBox top(page, "top", {0, 500, 1000, 315});
    ui::TextBox bottom(page, "bottom", {1000, 1600, 1000, 315});
    const Driver user(window);
    const auto *area = window.surface()->findChild<QScrollArea *>();
    const auto seen = [&](const QString &name) {
        return user.control(name)->visibleRegion().boundingRect() == user.control(name)->rect();
    };
    const auto place = [&](const QString &name) {
        return user.control(name)->mapTo(user.control("tabs"), QPoint());
    };
    tabs.finishLayout();
    QApplication::processEvents();
    EXPECT_FALSE(area->verticalScrollBar()->isVisible());
    EXPECT_EQ(place("top"), QPoint(0, qRound(500 * window.scale().y)));

    const auto room = tabs.roomFor({2500, 3000});
    EXPECT_FLOAT_EQ(room.height, 3000);
    EXPECT_LT(room.width, 3000); // the bar stands beside
    bottom.move(1000, room.height - bottom.height());
    tabs.finishLayout();
    QApplication::processEvents();
    EXPECT_TRUE(area->verticalScrollBar()->isVisible());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
    EXPECT_FALSE(seen("bottom"));
    user.control("top")->setFocus();
    user.press(Qt::Key_Tab);
    EXPECT_EQ(user.focused(), "bottom");
    EXPECT_TRUE(seen("bottom"));
}

} // namespace varnow::test
