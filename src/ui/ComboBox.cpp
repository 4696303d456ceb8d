#include "ui/ComboBox.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <limits>

namespace varnow::ui {

class ComboBox::Widget : public QComboBox
{
public:
    explicit Widget(QWidget *parent) : QComboBox(parent)
    {
        setEditable(true);
        setCompleter(nullptr);
        setInsertPolicy(QComboBox::NoInsert);
        lineEdit()->setMaxLength(std::numeric_limits<int>::max());
        // Leaving the box or pressing Enter would choose an item that equals the typed text.
        QObject::disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
        QObject::disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
    }

    void showPopup() override
    {
        followText();
        QComboBox::showPopup();
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            followText(); // with no other key, for it takes the selection and the undo history away
        }
        QComboBox::keyPressEvent(event);
    }

    // Scrolling past a box must not change it.
    void wheelEvent(QWheelEvent *event) override { event->ignore(); }

private:
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
    : ListControl(parent, name, new Widget(parent.surface()), place)
{
    QObject::connect(box()->lineEdit(), &QLineEdit::textEdited, box(), [this] {
        if (onChange)
            onChange();
    });
    QObject::connect(box(), &QComboBox::activated, box(), [this] {
        if (onClick)
            onClick();
    });
}

ComboBox::Widget *ComboBox::box() const
{
    return static_cast<Widget *>(widget());
}

QString ComboBox::text() const
{
    return box()->currentText();
}

void ComboBox::setText(const QString &text)
{
    if (text == box()->currentText())
        return;
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
    box()->setCurrentIndex(index);
    box()->setEditText(box()->itemText(index));
    box()->lineEdit()->setCursorPosition(0);
    if (onClick)
        onClick();
}

QSize ComboBox::neededPixels() const
{
    return {0, box()->sizeHint().height()};
}

} // namespace varnow::ui
