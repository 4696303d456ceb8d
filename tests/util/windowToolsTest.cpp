// Searching lists, selecting texts, the pointer, unloading windows: on real controls.

#include "support/Driver.h"
#include "support/printing.h"

#include "ui/Application.h"
#include "ui/ComboBox.h"
#include "ui/ListBox.h"
#include "ui/TextBox.h"
#include "util/modForms.h"
#include "util/modListTools.h"
#include "util/modMouse.h"
#include "util/modNumberTools.h"
#include "util/modTextBoxTools.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <limits>

namespace varnow::test {

class WindowTools : public testing::Test
{
protected:
    WindowTools()
    {
        for (const char *item : {"Alpha", " beta ", "ALPHABET", "alpha", "\u00c4rger"}) {
            list.addItem(item);
            combo.addItem(item);
        }
    }

    ui::Window window{"window", "Window", 4000, 4000};
    ui::ListBox list{window, "list", {0, 0, 2000, 1000}};
    ui::ComboBox combo{window, "combo", {0, 1000, 2000, 300}};
    ui::TextBox entry{window, "entry", {0, 2000, 2000, 300}};
};

// A search that minds case or blanks where it must not, or ignores them where it must not; an item other
// than the first; a fallback to the combo box's text that is missing, or that a list box gets too.
TEST_F(WindowTools, FindItems)
{
    enum Where { List, Combo, Entry };
    const ui::Control *const controls[] = {&list, &combo, &entry};
    const struct
    {
        Where where;
        QString comboText, text;
        bool isInList;
        int whole, prefix;
    } cases[] = {
        {List, "", "alpha", true, 0, 3},          {List, "", "  ALPHABET ", true, 2, 2},
        {List, "", "beta", true, -1, -1}, // the item begins with a blank
        {List, "", "Al", false, -1, 0},           {List, "", "al", false, -1, 3},
        {List, "", "\u00e4RGER", true, 4, -1},    {List, "", "\tAlpha", false, -1, -1},
        {List, "", "Alphabets", false, -1, -1},   {List, "alpha", "", false, -3, -3},
        {List, "", "  ", false, -3, -3},          {Combo, " alphabet", "", true, 2, -1},
        {Combo, "alphabet", "  ", false, 2, -1},  {Combo, "nothing", "alpha", true, 0, 3},
        {Combo, "", "", false, -3, -3},           {Combo, "  ", "", false, -3, -3},
        {Entry, "alpha", "alpha", false, -2, -2}, {Entry, "alpha", "", false, -3, -3},
    };
    for (const auto &[where, comboText, text, isInList, whole, prefix] : cases) {
        SCOPED_TRACE(testing::Message() << where << " \"" << qPrintable(text) << '"');
        combo.setText(comboText);
        EXPECT_EQ(IsInList(*controls[where], text), isInList);
        EXPECT_EQ(FindListIndex(*controls[where], text, false), whole);
        EXPECT_EQ(FindListIndex(*controls[where], text, true), prefix);
    }
    list.addItem("  ");
    EXPECT_TRUE(IsInList(list, " "));
}

// Typing that adds to the old text, an hourglass that needs as many resets as it was set, a lost carry.
TEST_F(WindowTools, SelectCountAndPoint)
{
    for (const QString text : {"", "one two"}) {
        entry.setText(text);
        EXPECT_EQ(SelectAllText(entry), 0);
        EXPECT_EQ(entry.selectedText(), text);
    }
    for (const int pointer : {0, 11, 11, 0, 0}) {
        SetMousePointer(pointer);
        EXPECT_EQ(ui::screenPointer(), pointer);
    }
    short value = std::numeric_limits<short>::max() - 1;
    EXPECT_EQ(Increment(value), std::numeric_limits<short>::max());
    double fraction = 0.5;
    EXPECT_EQ(Increment(fraction) + fraction, 3);
}

// A window that is forgotten, unloaded without its handlers, or against its will; an unload that unloads
// others meanwhile.
TEST_F(WindowTools, UnloadEveryWindow)
{
    ui::Window stubborn("stubborn", "", 1000, 1000);
    ui::Window last("last", "", 1000, 1000);
    QStringList asked;
    window.onQueryUnload = [&](bool &) {
        asked += "window";
        last.unload();
    };
    stubborn.onQueryUnload = [&](bool &cancel) {
        asked += "stubborn";
        cancel = true;
    };
    last.onQueryUnload = [&](bool &) { asked += "last"; };
    for (ui::Window *shown : {&window, &stubborn, &last})
        const Driver user(*shown);

    UnloadAllForms();
    EXPECT_EQ(asked, QStringList({"window", "last", "stubborn"}));
    EXPECT_EQ(ui::Window::loadedWindows(), std::vector<ui::Window *>{&stubborn});
    stubborn.onQueryUnload = nullptr;
    UnloadAllForms();
    EXPECT_TRUE(ui::Window::loadedWindows().empty());
}

} // namespace varnow::test
