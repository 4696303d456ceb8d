#include "ui/NoticeBar.h"

#include "base/names.h"
#include "ui/Window.h"
#include "ui/accessibleRole.h"
#include "ui/pushButton.h"
#include "ui/toolTip.h"

#include <QAccessible>
#include <QApplication>
#include <QFontMetrics>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QStylePainter>

#include <array>

namespace varnow::ui {

namespace {

constexpr int roomAround = 3; // pixels above and below the line

/// Shows as much of the sentence as there is room for.
class Sentence : public QLabel
{
public:
    explicit Sentence(QWidget *parent) : QLabel(parent)
    {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QString shown = text();
        for (const int longest : {60, 30, 15, 8}) {
            if (fontMetrics().horizontalAdvance(shown) <= width())
                break;
            shown = withShortNames(text(), longest);
        }
        QStylePainter painter(this);
        painter.drawItemText(rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                             fontMetrics().elidedText(shown, Qt::ElideRight, width()), foregroundRole());
    }
};

} // namespace

class NoticeBar::Widget : public QFrame
{
public:
    explicit Widget(QWidget *parent) : QFrame(parent), m_sentence(new Sentence(this))
    {
        setObjectName(QStringLiteral("notice"));
        makeAccessibleGroup(*this, QStringLiteral("Notice"));
        m_sentence->setObjectName(QStringLiteral("noticeSentence"));
        auto *row = new QHBoxLayout(this);
        row->setContentsMargins(8, 1, 8, 1);
        row->addWidget(m_sentence, 1);
        for (std::size_t i = 0; i < m_buttons.size(); ++i) {
            QPushButton *button = m_buttons[i] = makePushButton({}, this);
            button->setObjectName(QStringLiteral("noticeButton%1").arg(i + 1));
            button->setFocusPolicy(Qt::TabFocus); // a click leaves the focus where it is
            button->hide();
            row->addWidget(button);
            QObject::connect(button, &QPushButton::clicked, this, [this, i] {
                const Notice shown = m_notice; // the click may show another one
                giveFocusBack();
                shown.buttons[i].onClick();
            });
        }
        QObject::connect(qApp, &QApplication::focusChanged, this, [this](QWidget *before, QWidget *now) {
            if (before != nullptr && isAncestorOf(now) && !isAncestorOf(before))
                m_focusBefore = before;
        });
        fitHeight();
    }

    QSize sizeHint() const override { return {0, m_lineHeight + 2}; }

    void show(const Notice &notice)
    {
        m_notice = notice;
        m_sentence->setText(notice.sentence);
        m_sentence->setAccessibleName(withoutIsolation(notice.sentence));
        m_sentence->setToolTip(toolTipText(notice.sentence));
        for (std::size_t i = 0; i < m_buttons.size(); ++i) {
            const bool isUsed = i < notice.buttons.size();
            const Notice::Button button = isUsed ? notice.buttons[i] : Notice::Button();
            m_buttons[i]->setText(button.caption);
            explain(*m_buttons[i], button.toolTip);
            if (!isUsed && m_buttons[i] == window()->focusWidget())
                giveFocusBack();
            m_buttons[i]->setVisible(isUsed);
        }
        QAccessibleEvent changed(m_sentence, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&changed);
        QAccessibleEvent alert(m_sentence, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }

protected:
    void changeEvent(QEvent *event) override
    {
        QFrame::changeEvent(event);
        if (event->type() == QEvent::FontChange)
            fitHeight();
    }

private:
    /// Where a button of the bar has the focus, moves it back to where it was before. A button that is hidden
    /// with the focus would leave it to any control.
    void giveFocusBack()
    {
        if (m_focusBefore && isAncestorOf(window()->focusWidget()))
            m_focusBefore->setFocus(Qt::OtherFocusReason);
    }

    /// Buttons of a line's height, for the bar takes it from the pages and the tree.
    void fitHeight()
    {
        m_lineHeight = fontMetrics().height() + 2 * roomAround;
        for (QPushButton *button : m_buttons)
            button->setFixedHeight(m_lineHeight);
    }

    Notice m_notice;
    QPointer<QWidget> m_focusBefore; // outside the bar
    QLabel *m_sentence;
    std::array<QPushButton *, 2> m_buttons{};
    int m_lineHeight = 0;
};

NoticeBar::NoticeBar(Window &window) : m_widget(new Widget(window.frameSurface()))
{
    window.addBar(m_widget);
}

void NoticeBar::show(const Notice &notice)
{
    m_widget->show(notice);
}

} // namespace varnow::ui
