#pragma once

#include <QString>

#include <functional>

namespace varnow::ui {

// The platform's standard message-box numbers.
namespace style {
inline constexpr int OkOnly = 0;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int Critical = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
inline constexpr int ThirdButtonDefault = 512;
} // namespace style

namespace answer {
inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
} // namespace answer

/// Shows a modal message box and returns the button pressed.
using MessageBoxHandler = std::function<int(const QString &prompt, int style, const QString &title)>;

/// Replaces what showMessageBox() does and returns the handler that was in force. An empty handler restores
/// the real box. This is the program's only dialog besides its windows.
MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler);

/// Shows a modal message box with standard style numbers and returns the standard answer number.
int showMessageBox(const QString &prompt, int style, const QString &title);

} // namespace varnow::ui
