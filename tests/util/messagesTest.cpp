// What the message routines show, and what they leave in their callers' variables.

#include "support/MessageLog.h"

#include "startup/modGlobals.h"
#include "util/modMsgbox.h"

#include <gtest/gtest.h>

namespace varnow::test {

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
