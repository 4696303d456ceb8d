#include "ui/MessageBox.h"

#include "ui/Application.h"

#include <QApplication>
#include <QMessageBox>

#include <utility>

namespace varnow::ui {

namespace {

constexpr int buttonBits = 15;
constexpr int iconBits = 112;

QMessageBox::StandardButtons buttonsOf(int style)
{
    switch (style & buttonBits) {
    case style::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case style::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon iconOf(int style)
{
    switch (style & iconBits) {
    case style::Critical:
        return QMessageBox::Critical;
    case style::Question:
        return QMessageBox::Question;
    case style::Exclamation:
        return QMessageBox::Warning;
    case style::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return answer::Yes;
    case QMessageBox::No:
        return answer::No;
    case QMessageBox::Cancel:
        return answer::Cancel;
    default:
        return answer::Ok;
    }
}

int showRealBox(const QString &prompt, int style, const QString &title)
{
    QMessageBox box(iconOf(style), title, prompt, buttonsOf(style), QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    if ((style & style::ThirdButtonDefault) != 0)
        box.setDefaultButton(QMessageBox::Cancel);
    else if ((style & buttonBits) != style::OkOnly)
        box.setDefaultButton(QMessageBox::Yes); // some desktops put No first
    // The box waits for the user, so it does not show the hourglass of the work around it.
    const int pointer = screenPointer();
    setScreenPointer(0);
    const int button = box.exec();
    setScreenPointer(pointer);
    return answerOf(button);
}

MessageBoxHandler &currentHandler()
{
    static MessageBoxHandler handler;
    return handler;
}

} // namespace

MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler)
{
    return std::exchange(currentHandler(), std::move(handler));
}

int showMessageBox(const QString &prompt, int style, const QString &title)
{
    return currentHandler() ? currentHandler()(prompt, style, title) : showRealBox(prompt, style, title);
}

} // namespace varnow::ui
