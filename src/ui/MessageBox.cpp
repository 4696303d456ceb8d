#include "ui/MessageBox.h"

#include "base/names.h"
#include "base/text.h"
#include "ui/Application.h"
#include "ui/toolTip.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace varnow::ui {

namespace {

constexpr int longestName = 60; // characters
/// Pixels of the screen that a box needs for more than its text: frame, icon, buttons.
constexpr QSize besideText{200, 200};

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

/// The text with as much of its middle left out as it takes until it fits.
QString fitted(const QString &text, const std::function<bool(const QString &)> &fits)
{
    QString shown = text;
    for (qsizetype longest = text.size(); longest > 1 && !fits(shown);) {
        longest = longest * 3 / 4;
        shown = shortened(text, longest);
    }
    return shown;
}

/// The text as the screen has room for it. Long names are shortened, then what cannot be wrapped, a path for
/// one, then the whole.
QString fitted(const QString &text, const QFontMetrics &letters, const QSize &room)
{
    QString shown = withShortNames(text, longestName);
    static const QRegularExpression word(QStringLiteral("\\S{50,}"));
    for (qsizetype from = 0;;) {
        const QRegularExpressionMatch match = word.match(shown, from);
        if (!match.hasMatch())
            break;
        const QString fitting = fitted(match.captured(), [&](const QString &part) {
            return letters.horizontalAdvance(part) <= room.width();
        });
        shown.replace(match.capturedStart(), match.capturedLength(), fitting);
        from = match.capturedStart() + fitting.size();
    }
    return fitted(shown, [&](const QString &part) {
        return letters.boundingRect({{}, room}, Qt::TextWordWrap | Qt::TextExpandTabs, part).height() <=
               room.height();
    });
}

Answer showRealBox(const MessageBox &box)
{
    WideBox dialog(standardIcon(box.icon), box.title, {}, standardButtons(box.buttons),
                   QApplication::activeWindow());
    dialog.setTextFormat(Qt::PlainText);
    dialog.setText(fitted(box.text, dialog.fontMetrics(), dialog.screen()->availableSize() - besideText));
    if (dialog.text() != box.text)
        explain(dialog, withoutIsolation(box.text));
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
