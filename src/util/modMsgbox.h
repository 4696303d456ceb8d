#pragma once

#include <QString>

namespace varnow {

/// Shows a message box with a standard style number. An empty title becomes gMsgTitle, or the
/// application's title, in the caller's variable too. Returns the answer when one is wanted, else 0.
int ShowMessage(const QString &prompt, int style, QString &title, bool wantAnswer);

/// The plain box: OK button, no icon, default title, no answer.
void ShowMessage(const QString &prompt);

/// The box with an own title and no answer.
void ShowMessage(const QString &prompt, int style, const QString &title);

/// Asks with Yes and No, Yes the default. A prompt that is not empty gains the line
/// "Please select 'Yes' or 'No'". Returns 6 or 7.
int AskYesNo(QString &prompt, const QString &title);

/// Asks with Yes, No and Cancel, Cancel the default; the prompt gains its line likewise. Returns 6, 7 or 2.
int AskYesNoCancel(QString &prompt, const QString &title);

} // namespace varnow
