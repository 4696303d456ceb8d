#include "ui/FindBar.h"

#include "ui/Window.h"
#include "ui/accessibleRole.h"
#include "ui/pushButton.h"
#include "ui/toolTip.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace varnow::ui {

class FindBar::Widget : public QFrame
{
public:
    Widget(QWidget *parent, FindBar &owner)
        : QFrame(parent), m_owner(owner), entry(new QLineEdit(this)), count(new QLabel(this))
    {
        makeAccessibleGroup(*this, QStringLiteral("Find"));
        auto *label = new QLabel(QStringLiteral("Find"), this);
        label->setBuddy(entry);
        entry->setObjectName(QStringLiteral("find"));
        entry->setAccessibleName(QStringLiteral("Find"));
        count->setObjectName(QStringLiteral("findCount"));
        count->setMinimumWidth(count->fontMetrics().horizontalAdvance(QStringLiteral("99999 of 99999")));
        auto *next = makePushButton(QStringLiteral("Next"), this);
        auto *previous = makePushButton(QStringLiteral("Previous"), this);
        next->setObjectName(QStringLiteral("findNext"));
        previous->setObjectName(QStringLiteral("findPrevious"));
        explain(*entry,
                QStringLiteral("The text to look for, in any letter case. Enter shows the next match, "
                               "Shift+Enter the one before."));
        explain(*next, QStringLiteral("Shows the next match, behind the last one the first."));
        explain(*previous, QStringLiteral("Shows the match before, ahead of the first one the last."));
        auto *row = new QHBoxLayout(this);
        row->setContentsMargins(8, 1, 8, 1);
        row->addWidget(label);
        row->addWidget(entry, 1);
        for (QWidget *widget : std::initializer_list<QWidget *>{count, next, previous})
            row->addWidget(widget);
        QObject::connect(entry, &QLineEdit::textChanged, this, [this] { m_owner.onChange(); });
        QObject::connect(next, &QPushButton::clicked, this, [this] { m_owner.onNext(); });
        QObject::connect(previous, &QPushButton::clicked, this, [this] { m_owner.onPrevious(); });
        hide();
    }

    void open()
    {
        if (isHidden())
            m_focusBefore = QApplication::focusWidget();
        show();
        entry->setFocus(Qt::ShortcutFocusReason);
        entry->selectAll();
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        switch (event->key()) {
        case Qt::Key_Escape:
            hide();
            if (m_focusBefore)
                m_focusBefore->setFocus(Qt::OtherFocusReason);
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (event->modifiers().testFlag(Qt::ShiftModifier))
                m_owner.onPrevious();
            else
                m_owner.onNext();
            return;
        default:
            QFrame::keyPressEvent(event);
        }
    }

private:
    FindBar &m_owner;
    QPointer<QWidget> m_focusBefore;

public:
    QLineEdit *const entry;
    QLabel *const count;
};

FindBar::FindBar(Window &window) : m_widget(new Widget(window.frameSurface(), *this))
{
    window.addBar(m_widget);
}

void FindBar::open()
{
    m_widget->open();
}

bool FindBar::isOpen() const
{
    return !m_widget->isHidden();
}

QString FindBar::text() const
{
    return m_widget->entry->text();
}

void FindBar::setCount(const QString &count)
{
    m_widget->count->setText(count);
}

} // namespace varnow::ui
