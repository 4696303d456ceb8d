#include "ui/pasting.h"

#include "ui/lineBreaks.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>
#include <memory>

namespace varnow::ui {

namespace {

/// A line edit paints line breaks and other control characters as blanks.
bool isPaintedAsBlank(QChar character)
{
    return isLineBreak(character) || (character < u' ' && character != u'\t');
}

/// Stands before a line edit, and takes every event that brings text from elsewhere.
class PasteFilter : public QObject
{
public:
    explicit PasteFilter(QLineEdit &edit) : QObject(&edit), m_edit(edit)
    {
        edit.installEventFilter(this);
        if (QWidget *box = edit.focusProxy())
            box->installEventFilter(this);
    }

    bool eventFilter(QObject *target, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::KeyPress:
            return takeKey(static_cast<QKeyEvent &>(*event));
        case QEvent::MouseButtonRelease:
            return target == &m_edit && takeClick(static_cast<QMouseEvent &>(*event));
        case QEvent::ContextMenu:
            return target == &m_edit && showMenu(static_cast<QContextMenuEvent &>(*event));
        case QEvent::DragEnter:
            return target == &m_edit && leaveFiles(static_cast<QDragEnterEvent &>(*event));
        case QEvent::Drop:
            return target == &m_edit && takeDrop(static_cast<QDropEvent &>(*event));
        default:
            return false;
        }
    }

private:
    QString cut(const QString &text) const
    {
        const auto end = std::find_if(text.cbegin(), text.cend(), isPaintedAsBlank);
        QStringView line = QStringView(text).first(end - text.cbegin());
        if (m_edit.echoMode() != QLineEdit::Normal)
            return line.toString();
        const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
        while (!line.isEmpty() && isBlank(line.front()))
            line = line.mid(1);
        while (!line.isEmpty() && isBlank(line.back()))
            line.chop(1);
        return line.toString();
    }

    void paste(QClipboard::Mode mode)
    {
        const QString text = cut(QApplication::clipboard()->text(mode));
        if (!text.isEmpty() || m_edit.hasSelectedText())
            m_edit.insert(text);
    }

    bool takeKey(const QKeyEvent &event)
    {
        if (!event.matches(QKeySequence::Paste))
            return false;
        const bool ofSelection = event.key() == Qt::Key_Insert && event.modifiers() == (Qt::CTRL | Qt::SHIFT);
        paste(ofSelection ? QClipboard::Selection : QClipboard::Clipboard);
        return true;
    }

    bool takeClick(const QMouseEvent &event)
    {
        if (event.button() != Qt::MiddleButton || !QApplication::clipboard()->supportsSelection())
            return false;
        m_edit.deselect();
        paste(QClipboard::Selection);
        QMouseEvent withoutButton(event.type(), event.position(), event.globalPosition(), Qt::NoButton,
                                  event.buttons(), event.modifiers());
        m_edit.event(&withoutButton); // the edit still learns that the click is over
        return true;
    }

    bool showMenu(const QContextMenuEvent &event)
    {
        const std::unique_ptr<QMenu> menu(m_edit.createStandardContextMenu());
        for (QAction *action : menu->actions()) {
            if (!action->text().startsWith(QLineEdit::tr("&Paste")))
                continue;
            action->disconnect(&m_edit);
            connect(action, &QAction::triggered, this, [this] { paste(QClipboard::Clipboard); });
        }
        menu->exec(event.globalPos());
        return true;
    }

    /// Files go to the window, where it takes them.
    bool leaveFiles(QDragEnterEvent &event)
    {
        const bool isForWindow = event.mimeData()->hasUrls() && m_edit.window()->acceptDrops();
        if (isForWindow)
            event.ignore();
        return isForWindow;
    }

    bool takeDrop(QDropEvent &event)
    {
        if (event.source() == &m_edit)
            return false; // its own text moves
        const QString whole = event.mimeData()->text();
        const QString text = cut(whole);
        const int place = m_edit.cursorPositionAt(event.position().toPoint());
        m_edit.setCursorPosition(place);
        m_edit.insert(text);
        m_edit.setSelection(place, static_cast<int>(text.size()));
        event.acceptProposedAction();
        if (text != whole)
            event.setDropAction(Qt::CopyAction); // the rest stays where it came from
        QDragLeaveEvent over;
        m_edit.event(&over); // takes the mark of the place away
        return true;
    }

    QLineEdit &m_edit;
};

} // namespace

void endPastedTextAtLineBreak(QLineEdit &edit)
{
    new PasteFilter(edit);
}

} // namespace varnow::ui
