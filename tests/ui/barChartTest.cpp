// Faults to catch: a click that hits another bar or none, a bar that the keys do not reach or that stays out
// of sight, a place that leaves the range of a number, assistive tools that are told of another bar.

#include "support/Driver.h"

#include "ui/BarChart.h"
#include "ui/Window.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

struct BarChartTest : testing::Test
{
    struct Form : ui::Window
    {
        Form() : ui::Window("form", "Form", 6000, 3000) {}
        ui::BarChart chart{*this, "chart", {0, 0, 6000, 3000}};
    };

    BarChartTest()
    {
        form.chart.setBars({{"far", "", 4990, 10},
                            {"first", "blanks on the right", 1, 10},
                            {"below", "", 5, 1, true},
                            {"narrow", "", 11, 1},
                            {"no length", "", 20, 0},
                            {"endless", "", 2147483647, 2147483647}});
        form.chart.onBarClick = [this](int bar) { clicks += bar; };
        form.chart.setAccessibleName("Layout");
    }

    void click(QPoint point) { QTest::mouseClick(viewport(), Qt::LeftButton, {}, point); }
    QAccessibleInterface *accessible() const
    {
        return QAccessible::queryAccessibleInterface(form.chart.widget());
    }
    /// The bar that assistive tools are told of, or -1.
    int currentBar() const { return accessible()->indexOfChild(accessible()->focusChild()); }
    /// In pixels of the viewport.
    QRect placeOf(int bar) const
    {
        const QRect place = accessible()->child(bar)->rect();
        return {viewport()->mapFromGlobal(place.topLeft()), place.size()};
    }
    QWidget *viewport() const { return static_cast<QAbstractScrollArea *>(form.chart.widget())->viewport(); }

    Form form;
    Driver user{form};
    QList<int> clicks;
};

} // namespace

TEST_F(BarChartTest, IsHitWhereABarIsSeen)
{
    for (const int bar : {1, 2, 3, 4, 0, 5}) {
        form.chart.setCurrentBar(bar);
        const QRect place = placeOf(bar);
        ASSERT_TRUE(viewport()->rect().contains(place.topLeft() + QPoint(1, 1))) << bar;
        click(place.topLeft() + QPoint(1, 1));
    }
    EXPECT_EQ(clicks, QList<int>({1, 2, 3, 4, 0, 5}));
    form.chart.setCurrentBar(1);
    const QRect first = placeOf(1);
    EXPECT_GT(placeOf(2).top(), first.bottom());
    click({first.left() + 1, first.top() - 5}); // on the ruler
    EXPECT_EQ(clicks.size(), 6);

    const int under = placeOf(3).center().x(); // zooming leaves it there
    QWheelEvent wheel(QPointF(under, 50), viewport()->mapToGlobal(QPointF(under, 50)), {}, {0, 240}, {},
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport(), &wheel);
    EXPECT_GT(placeOf(1).width(), 1.5 * first.width());
    click({under, placeOf(3).center().y()});
    EXPECT_EQ(clicks.last(), 3);
}

TEST_F(BarChartTest, IsWalkedWithTheKeys)
{
    form.chart.setFocus();
    QList<int> walked;
    for (const int key : {Qt::Key_Return, Qt::Key_Right, Qt::Key_Down, Qt::Key_End, Qt::Key_Left, Qt::Key_Up,
                          Qt::Key_Home, Qt::Key_Left, Qt::Key_Enter}) {
        user.press(key);
        walked += currentBar();
    }
    EXPECT_EQ(walked, QList<int>({-1, 1, 2, 5, 0, 4, 1, 1, 1}));
    EXPECT_EQ(clicks, QList<int>({1}));
    const int width = placeOf(1).width();
    user.press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(placeOf(1).width(), width);

    const QAccessibleInterface *chart = accessible();
    EXPECT_EQ(chart->text(QAccessible::Name), "Layout");
    EXPECT_EQ(chart->childCount(), 6);
    EXPECT_EQ(chart->focusChild()->text(QAccessible::Name),
              "first, characters 1 to 10, length 10, blanks on the right");
    EXPECT_EQ(chart->child(2)->text(QAccessible::Name), "below, character 5, overlaps another one");
    form.chart.setBars({});
    user.press(Qt::Key_Right);
    EXPECT_EQ(currentBar(), ui::BarChart::none);
}

TEST_F(BarChartTest, MakesAPictureOfTheWantedWidth)
{
    for (const std::vector<ui::Bar> &bars : {std::vector<ui::Bar>(), {{"endless", "", 1, 2147483647}}}) {
        const QImage image = QImage::fromData(ui::pngOf(bars, 700));
        EXPECT_EQ(image.width(), 700 * ui::paperDensity);
        EXPECT_LT(image.height(), 10'000 * ui::paperDensity);
    }
}

} // namespace varnow::test
