#include "ui/MessageBox.h"

#include "base/text.h"
#include "ui/Application.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace varnow::ui {

namespace {

QMessageBox::StandardButtons standardButtons(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok:
        return QMessageBox::Ok;
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    Q_UNREACHABLE();
}

/// Set by us, for some desktops put No first.
QMessageBox::StandardButton defaultButton(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok:
        return QMessageBox::Ok;
    case Buttons::YesNo:
        return QMessageBox::Yes;
    case Buttons::YesNoCancel:
        return QMessageBox::Cancel;
    }
    Q_UNREACHABLE();
}

QMessageBox::Icon standardIcon(Icon icon)
{
    switch (icon) {
    case Icon::None:
        return QMessageBox::NoIcon;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Information:
        return QMessageBox::Information;
    }
    Q_UNREACHABLE();
}

Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

/// A box whose lines are wrapped only where the screen is too narrow for them: the toolkit wraps much
/// earlier.
class WideBox : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

protected:
    bool event(QEvent *event) override
    {
        const bool handled = QMessageBox::event(event);
        if (event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest)
            widen();
        return handled;
    }

private:
    void widen()
    {
        auto *label = findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
        if (label == nullptr || !label->wordWrap())
            return;
        label->setWordWrap(false);
        const int room = screen()->availableSize().width() - (frameGeometry().width() - width());
        if (layout()->totalMinimumSize().width() > room)
            label->setWordWrap(true);
        const int wide = label->wordWrap() ? room : layout()->totalMinimumSize().width();
        const int high = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(wide)
                                                       : layout()->totalMinimumSize().height();
        setFixedSize(std::max(wide, width()), high);
        QCoreApplication::removePostedEvents(this, QEvent::LayoutRequest); // the one that this posted
    }
};

Answer showRealBox(const MessageBox &box)
{
    WideBox dialog(standardIcon(box.icon), box.title, box.text, standardButtons(box.buttons),
                   QApplication::activeWindow());
    dialog.setTextFormat(Qt::PlainText);
    dialog.setDefaultButton(defaultButton(box.buttons));
    const Hourglass::Paused waitsForTheUser;
    return answerOf(dialog.exec());
}

MessageBoxHandler &currentHandler()
{
    static MessageBoxHandler handler;
    return handler;
}

Answer ask(QString text, const QString &reminder, const QString &title, Buttons buttons)
{
    if (!text.isEmpty())
        text += lineBreak + reminder;
    return show({text, title, Icon::Question, buttons});
}

} // namespace

Answer show(const MessageBox &box)
{
    return currentHandler() ? currentHandler()(box) : showRealBox(box);
}

bool askYesNo(const QString &text, const QString &title)
{
    return ask(text, QStringLiteral("Please select 'Yes' or 'No'"), title, Buttons::YesNo) == Answer::Yes;
}

Answer askYesNoCancel(const QString &text, const QString &title)
{
    return ask(text, QStringLiteral("Please select 'Yes', 'No' or 'Cancel'"), title, Buttons::YesNoCancel);
}

MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler)
{
    return std::exchange(currentHandler(), std::move(handler));
}

} // namespace varnow::ui
