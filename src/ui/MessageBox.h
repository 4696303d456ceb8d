#pragma once

#include <QString>

#include <functional>

namespace varnow::ui {

enum class Icon { None, Critical, Question, Information };

/// The buttons of a box. Yes is the default button of YesNo, Cancel that of YesNoCancel.
enum class Buttons { Ok, YesNo, YesNoCancel };

enum class Answer { Ok, Yes, No, Cancel };

/// A modal message box. Names in its text as isolated() gives them are shortened where they are long, and so
/// is whatever the screen has no room for; the whole text is the box's tooltip then. Some texts shown all
/// over the program hold typing errors ("nust", "esists"): they stay, for users know and quote them so.
struct MessageBox
{
    QString text;
    QString title = QStringLiteral("Configuration");
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;

    bool operator==(const MessageBox &) const = default;
};

/// Shows a message box and returns the button pressed; closing it presses Cancel, or else No or Ok.
Answer show(const MessageBox &box);

/// Asks with a question mark; the text gains a line that tells the buttons.
bool askYesNo(const QString &text, const QString &title);
Answer askYesNoCancel(const QString &text, const QString &title);

using MessageBoxHandler = std::function<Answer(const MessageBox &)>;

/// Replaces what show() does and returns the handler that was in force. An empty handler restores the real
/// box. This is the program's only dialog besides its windows.
MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler);

} // namespace varnow::ui
