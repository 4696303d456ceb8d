#include "ui/ComboBox.h"

#include "base/text.h"
#include "ui/pasting.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <limits>

namespace varnow::ui {

namespace {

constexpr int typingPause = 700; // milliseconds
constexpr int untilRetry = 20;   // milliseconds

/// Whether a message box would come in the way of what the user does at the moment: it would take the click
/// that has begun, close a menu, or cover another box.
bool wouldDisturb(const QWidget &window)
{
    const QWidget *modal = QApplication::activeModalWidget();
    return QGuiApplication::mouseButtons() != Qt::NoButton || QApplication::activePopupWidget() != nullptr ||
           (modal != nullptr && modal != &window);
}

/// What assistive tools see of a combo box. The toolkit's own gives its text for its name on some platforms.
class AccessibleComboBox : public QAccessibleWidget
{
public:
    explicit AccessibleComboBox(QComboBox *box) : QAccessibleWidget(box, QAccessible::ComboBox), m_box(*box)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_box.currentText() : QAccessibleWidget::text(kind);
    }

    int childCount() const override { return 2; }

    QAccessibleInterface *child(int index) const override
    {
        QWidget *const children[] = {m_box.view(), m_box.lineEdit()};
        return index == 0 || index == 1 ? QAccessible::queryAccessibleInterface(children[index]) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child->object() == m_box.view() ? 0 : child->object() == m_box.lineEdit() ? 1 : -1;
    }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }

    void doAction(const QString &) override
    {
        if (m_box.view()->isVisible())
            m_box.hidePopup();
        else
            m_box.showPopup();
    }

private:
    QComboBox &m_box;
};

} // namespace

class ComboBox::Widget : public QComboBox
{
public:
    explicit Widget(QWidget *parent) : QComboBox(parent)
    {
        QAccessible::installFactory(&makeInterface); // once, however often it is called
        setEditable(true);
        setCompleter(nullptr);
        setInsertPolicy(QComboBox::NoInsert);
        lineEdit()->setMaxLength(std::numeric_limits<int>::max());
        // Leaving the box or pressing Enter would choose an item that equals the typed text.
        QObject::disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
        QObject::disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
        endPastedTextAtLineBreak(*lineEdit());
    }

    QTimer typingPause;

    void showPopup() override
    {
        followText();
        const QRect screenArea = screen()->availableGeometry();
        auto *dropDown = static_cast<QFrame *>(view()->window());
        view()->setMinimumWidth(std::min(widestItem(), screenArea.width() - 2 * dropDown->frameWidth()));
        QComboBox::showPopup();
        const int beyondScreen = dropDown->geometry().right() - screenArea.right();
        if (beyondScreen > 0)
            dropDown->move(std::max(dropDown->x() - beyondScreen, screenArea.left()), dropDown->y());
    }

    /// Height of what surrounds the line of text.
    int frameHeight() const
    {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QRect inside =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        return option.rect.height() - inside.height();
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            endTyping();
            break;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            followText(); // with no other key, for it takes the selection and the undo history away
        }
        QComboBox::keyPressEvent(event);
    }

    void focusOutEvent(QFocusEvent *event) override
    {
        QComboBox::focusOutEvent(event);
        endTyping();
    }

    // Scrolling past a box must not change it.
    void wheelEvent(QWheelEvent *event) override { event->ignore(); }

private:
    void endTyping()
    {
        if (typingPause.isActive())
            typingPause.start(0); // once this event is over
    }

    static QAccessibleInterface *makeInterface(const QString &, QObject *object)
    {
        auto *box = dynamic_cast<Widget *>(object);
        return box == nullptr ? nullptr : new AccessibleComboBox(box);
    }

    int widestItem() const
    {
        const int bar = count() > maxVisibleItems() ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
        return view()->sizeHintForColumn(0) + 2 * view()->frameWidth() + bar;
    }

    /// Makes the item that the box shows the current one, so that the arrow keys go on from it.
    void followText()
    {
        const QString text = currentText();
        if (itemText(currentIndex()) == text)
            return;
        const QSignalBlocker blocker(this);
        const int cursor = lineEdit()->cursorPosition();
        setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
        setEditText(text);
        lineEdit()->setCursorPosition(cursor);
    }
};

ComboBox::ComboBox(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, new Widget(parent.surface()), place)
{
    box()->typingPause.setSingleShot(true);
    box()->typingPause.callOnTimeout([this] {
        if (wouldDisturb(*box()->window()))
            box()->typingPause.start(untilRetry);
        else if (onTypingPaused)
            onTypingPaused();
    });
    QObject::connect(box()->lineEdit(), &QLineEdit::textEdited, box(), [this] {
        box()->typingPause.start(typingPause);
        if (onChange)
            onChange();
        if (isBeingTyped())
            box()->typingPause.start(); // however long that took, the next keys may be waiting
    });
    QObject::connect(box(), &QComboBox::activated, box(), [this] {
        box()->typingPause.stop();
        if (onClick)
            onClick();
    });
}

ComboBox::Widget *ComboBox::box() const
{
    return static_cast<Widget *>(widget());
}

bool ComboBox::isBeingTyped() const
{
    return box()->typingPause.isActive();
}

QString ComboBox::text() const
{
    return box()->currentText();
}

void ComboBox::setText(const QString &text)
{
    if (text == box()->currentText())
        return;
    box()->typingPause.stop();
    box()->setEditText(text);
    box()->lineEdit()->setCursorPosition(0);
    if (onChange)
        onChange();
}

int ComboBox::itemCount() const
{
    return box()->count();
}

QString ComboBox::itemText(int index) const
{
    return box()->itemText(index);
}

int ComboBox::findItem(const QString &text, ItemMatch match) const
{
    const QString key = trim(text);
    const auto matches = [&](const QString &item) {
        switch (match) {
        case ItemMatch::Exact:
            return item == key;
        case ItemMatch::Whole:
            return item.toLower() == key.toLower();
        case ItemMatch::Prefix:
            return item.startsWith(key);
        }
        Q_UNREACHABLE();
    };
    for (int i = 0; i < itemCount() && !key.isEmpty(); ++i) {
        if (matches(itemText(i)))
            return i;
    }
    return -1;
}

/// The toolkit writes an item into the box whenever the current index moves; here the list changes alone.
void ComboBox::keepingText(const std::function<void()> &change)
{
    const QString text = box()->currentText();
    const QSignalBlocker blocker(box());
    change();
    if (box()->currentText() != text)
        box()->setEditText(text);
}

int ComboBox::addItem(const QString &text)
{
    keepingText([&] {
        const int current = box()->currentIndex();
        box()->addItem(text, 0);
        box()->setCurrentIndex(current);
    });
    return box()->count() - 1;
}

int ComboBox::itemData(int index) const
{
    return box()->itemData(index).toInt();
}

void ComboBox::setItemData(int index, int data)
{
    box()->setItemData(index, data);
}

void ComboBox::clear()
{
    keepingText([&] { box()->clear(); });
}

void ComboBox::setSelectedIndex(int index)
{
    if (index < 0)
        return;
    box()->typingPause.stop();
    box()->setCurrentIndex(index);
    box()->setEditText(box()->itemText(index));
    box()->lineEdit()->setCursorPosition(0);
    if (onClick)
        onClick();
}

void ComboBox::setAccessibleName(const QString &name)
{
    Control::setAccessibleName(name);
    box()->lineEdit()->setAccessibleName(name);
}

QSize ComboBox::neededPixels() const
{
    return {0, lineHeight() + box()->frameHeight()};
}

} // namespace varnow::ui
