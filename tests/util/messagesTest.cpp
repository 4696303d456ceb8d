// What the message routines show, and what they leave in their callers' variables.

#include "support/MessageLog.h"
#include "support/printing.h"

#include "startup/modGlobals.h"
#include "util/modMsgbox.h"

#include <gtest/gtest.h>

namespace varnow::test {

// A title from the wrong source, one that the caller does not learn, or an answer that nobody wanted.
TEST(Messages, ChooseTheTitleAndTheResult)
{
    const struct
    {
        QString defaultTitle, title, shown;
    } cases[] = {{"Configuration", "", "Configuration"},
                 {"Configuration", "ERROR", "ERROR"},
                 {"", "", "Varnow"},
                 {"", " ", " "}};
    for (const auto &[defaultTitle, given, shown] : cases) {
        MessageLog messages;
        gMsgTitle = defaultTitle;
        QString title = given;
        messages.answerWith(ui::answer::No);
        EXPECT_EQ(ShowMessage("text", 36, title, true), 7);
        EXPECT_EQ(title, shown);
        title = given;
        EXPECT_EQ(ShowMessage("text", 64, title, false), 0);
        EXPECT_EQ(title, shown);
        EXPECT_EQ(messages.take(), (std::vector<Box>{{"text", 36, shown}, {"text", 64, shown}}));
    }
}

// A reminder that names the wrong buttons or stands alone; the wrong default button; a swapped answer.
TEST(Messages, AskWithAReminder)
{
    const auto yesNo = [](QString &prompt) { return AskYesNo(prompt, "Sure"); };
    const auto yesNoCancel = [](QString &prompt) { return AskYesNoCancel(prompt, "Sure"); };
    const struct
    {
        int (*ask)(QString &);
        int style, answer;
        QString reminder;
    } cases[] = {{yesNo, 36, 6, "Please select 'Yes' or 'No'"},
                 {yesNo, 36, 7, "Please select 'Yes' or 'No'"},
                 {yesNoCancel, 547, 6, "Please select 'Yes', 'No' or 'Cancel'"},
                 {yesNoCancel, 547, 7, "Please select 'Yes', 'No' or 'Cancel'"},
                 {yesNoCancel, 547, 2, "Please select 'Yes', 'No' or 'Cancel'"}};
    for (const auto &[ask, style, answer, reminder] : cases) {
        for (const QString question : {"", "Go on?"}) {
            MessageLog messages;
            messages.answerWith(answer);
            QString prompt = question;
            EXPECT_EQ(ask(prompt), answer);
            EXPECT_EQ(prompt, question.isEmpty() ? question : question + "\r\n" + reminder);
            EXPECT_EQ(messages.take(), (std::vector<Box>{{prompt, style, "Sure"}}));
        }
    }
}

} // namespace varnow::test
