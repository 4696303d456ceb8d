#include "ui/TextBox.h"

#include "ui/pasting.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyleOptionFrame>

#include <limits>
#include <utility>

namespace varnow::ui {

namespace {

QAccessible::UpdateHandler handlerBefore = nullptr;

/// Passes everything on but the text that enters or leaves a password box: a line edit tells its true
/// letters.
void withholdPasswords(QAccessibleEvent *event)
{
    const bool tellsText = event->type() == QAccessible::TextInserted ||
                           event->type() == QAccessible::TextRemoved ||
                           event->type() == QAccessible::TextUpdated;
    const auto *edit = tellsText ? qobject_cast<QLineEdit *>(event->object()) : nullptr;
    if (edit != nullptr && edit->echoMode() != QLineEdit::Normal)
        return;
    if (handlerBefore != nullptr) {
        handlerBefore(event);
        return;
    }
    // The toolkit reaches the assistive tools only while no handler stands in between.
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(withholdPasswords);
}

} // namespace

class TextBox::Widget : public QLineEdit
{
public:
    explicit Widget(QWidget *parent) : QLineEdit(parent) { setMaxLength(std::numeric_limits<int>::max()); }

    std::function<void()> lostFocus;

    int frameHeight() const
    {
        QStyleOptionFrame option;
        initStyleOption(&option);
        const QRect inside = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
        return option.rect.height() - inside.height();
    }

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QLineEdit::focusInEvent(event);
        m_keepSelection = event->reason() == Qt::MouseFocusReason;
        // The focus may also come back together with the whole window; then the box was entered before,
        // unless code moved the focus here meanwhile.
        if (!std::exchange(m_entered, true))
            setSelection(0, static_cast<int>(text().size()));
    }

    void focusOutEvent(QFocusEvent *event) override
    {
        QLineEdit::focusOutEvent(event);
        if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
            return;
        m_entered = false;
        lostFocus();
    }

    // The click that gives the focus must not undo the selection that the focus made.
    void mousePressEvent(QMouseEvent *event) override
    {
        if (!m_keepSelection)
            QLineEdit::mousePressEvent(event);
    }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (!m_keepSelection)
            QLineEdit::mouseMoveEvent(event);
    }

    void mouseReleaseEvent(QMouseEvent *event) override
    {
        m_keepSelection = false;
        QLineEdit::mouseReleaseEvent(event);
    }

private:
    bool m_entered = false;
    bool m_keepSelection = false;
};

TextBox::TextBox(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, new Widget(parent.surface()), place)
{
    const auto forward = [](const std::function<void()> &event) {
        return [&event] {
            if (event)
                event();
        };
    };
    endPastedTextAtLineBreak(*edit());
    edit()->lostFocus = forward(onLostFocus);
    QObject::connect(edit(), &QLineEdit::textChanged, edit(), forward(onChange));
}

TextBox::Widget *TextBox::edit() const
{
    return static_cast<Widget *>(widget());
}

QString TextBox::text() const
{
    return edit()->text();
}

void TextBox::setText(const QString &text)
{
    if (text == edit()->text())
        return;
    edit()->setText(text);
    edit()->setCursorPosition(0);
}

void TextBox::selectAll()
{
    edit()->setSelection(0, static_cast<int>(edit()->text().size()));
}

void TextBox::setPassword(bool password)
{
    edit()->setEchoMode(password ? QLineEdit::Password : QLineEdit::Normal);
    edit()->setStyleSheet(QStringLiteral("QLineEdit { lineedit-password-character: 42 }"));
    const QAccessible::UpdateHandler before = QAccessible::installUpdateHandler(withholdPasswords);
    if (before != withholdPasswords)
        handlerBefore = before;
}

QSize TextBox::neededPixels() const
{
    return {0, lineHeight() + edit()->frameHeight()};
}

} // namespace varnow::ui
