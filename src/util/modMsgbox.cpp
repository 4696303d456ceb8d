#include "util/modMsgbox.h"

#include "base/text.h"
#include "startup/modGlobals.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"

namespace varnow {

namespace {

int ask(QString &prompt, const QString &reminder, int style, QString title)
{
    if (!prompt.isEmpty())
        prompt += lineBreak + reminder;
    return ShowMessage(prompt, style, title, true);
}

} // namespace

int ShowMessage(const QString &prompt, int style, QString &title, bool wantAnswer)
{
    if (title.isEmpty())
        title = gMsgTitle.isEmpty() ? ui::applicationTitle() : gMsgTitle;
    const int answer = ui::showMessageBox(prompt, style, title);
    return wantAnswer ? answer : 0;
}

void ShowMessage(const QString &prompt)
{
    ShowMessage(prompt, ui::style::OkOnly, QString());
}

void ShowMessage(const QString &prompt, int style, const QString &title)
{
    QString chosenTitle = title;
    ShowMessage(prompt, style, chosenTitle, false);
}

int AskYesNo(QString &prompt, const QString &title)
{
    return ask(prompt, QStringLiteral("Please select 'Yes' or 'No'"), ui::style::YesNo | ui::style::Question,
               title);
}

int AskYesNoCancel(QString &prompt, const QString &title)
{
    return ask(prompt, QStringLiteral("Please select 'Yes', 'No' or 'Cancel'"),
               ui::style::YesNoCancel | ui::style::Question | ui::style::ThirdButtonDefault, title);
}

} // namespace varnow
