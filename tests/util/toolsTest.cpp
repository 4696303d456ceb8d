// The small tools on real controls, and what the message routines show.

#include "support/MessageLog.h"

#include "startup/modGlobals.h"
#include "ui/Application.h"
#include "ui/ComboBox.h"
#include "ui/ListBox.h"
#include "ui/TextBox.h"
#include "ui/Window.h"
#include "util/modForms.h"
#include "util/modListTools.h"
#include "util/modMouse.h"
#include "util/modMsgbox.h"
#include "util/modNumberTools.h"

#include <gtest/gtest.h>

namespace varnow::test {

struct WindowTools : testing::Test
{
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

// An hourglass that needs as many resets as it was set; a counter that keeps its old value.
TEST_F(WindowTools, PointAndCount)
{
    for (const int pointer : {0, 11, 11, 0, 0}) {
        SetMousePointer(pointer);
        EXPECT_EQ(ui::screenPointer(), pointer);
    }
    short value = 32766;
    EXPECT_EQ(Increment(value) + value, 2 * 32767);
}

// A window that is forgotten, unloaded without its handlers, or against its will; an unload that unloads
// others meanwhile.
TEST_F(WindowTools, UnloadEveryWindow)
{
    ui::Window stubborn("stubborn", "", 1000, 1000);
    ui::Window last("last", "", 1000, 1000);
    int asked = 0;
    window.onQueryUnload = [&](bool &) { last.unload(); };
    stubborn.onQueryUnload = [](bool &cancel) { cancel = true; };
    last.onQueryUnload = [&](bool &) { ++asked; };
    for (ui::Window *shown : {&window, &stubborn, &last})
        shown->show();
    UnloadAllForms();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(ui::Window::loadedWindows(), std::vector<ui::Window *>{&stubborn});
    stubborn.onQueryUnload = nullptr;
    UnloadAllForms();
    EXPECT_TRUE(ui::Window::loadedWindows().empty());
}

// A title from the wrong source, one that the caller does not learn, or an answer that nobody wanted; a
// reminder of the buttons that stands alone.
TEST(Messages, ChooseTheTitleAndTheResult)
{
    const QString cases[][3] = {{"Configuration", "", "Configuration"},
                                {"Configuration", "ERROR", "ERROR"},
                                {"", "", "Varnow"},
                                {"", " ", " "}};
    for (const auto &[defaultTitle, given, shown] : cases) {
        MessageLog messages;
        gMsgTitle = defaultTitle;
        for (const bool wantAnswer : {true, false}) {
            QString title = given;
            messages.answerWith(ui::answer::No);
            EXPECT_EQ(ShowMessage("text", 36, title, wantAnswer), wantAnswer ? 7 : 0);
            EXPECT_EQ(title, shown);
        }
        EXPECT_EQ(messages.take(), Boxes(2, {"text", 36, shown}));
    }
    MessageLog messages;
    for (const auto ask : {AskYesNo, AskYesNoCancel}) {
        QString prompt;
        messages.answerWith(ui::answer::No);
        EXPECT_EQ(ask(prompt, "Sure"), 7);
        EXPECT_EQ(messages.take(), (Boxes{{"", ask == AskYesNo ? 36 : 547, "Sure"}}));
    }
}

} // namespace varnow::test
