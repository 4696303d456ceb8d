#pragma once

#include "support/printing.h"

#include "ui/MessageBox.h"

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <utility>

namespace varnow::ui {

inline void PrintTo(const MessageBox &box, std::ostream *out)
{
    *out << "[" << qPrintable(box.title) << ", icon " << int(box.icon) << ", buttons " << int(box.buttons)
         << "] " << qPrintable(box.text);
}

} // namespace varnow::ui

namespace varnow::test {

using Box = ui::MessageBox;
using Boxes = QList<Box>;

inline Box information(const QString &text, const QString &title = "Configuration")
{
    return {text, title, ui::Icon::Information};
}

inline Box critical(const QString &text, const QString &title = "Configuration")
{
    return {text, title, ui::Icon::Critical};
}

inline Box question(const QString &text, const QString &title, ui::Buttons buttons = ui::Buttons::YesNo)
{
    return {text, title, ui::Icon::Question, buttons};
}

/// Records every message box while it lives, and answers in place of the user: questions as told, the rest
/// with OK. A question without an answer told fails the test.
class MessageLog
{
public:
    MessageLog() : m_before(ui::setMessageBoxHandler([this](const Box &box) { return show(box); })) {}

    ~MessageLog()
    {
        EXPECT_TRUE(m_answers.empty()) << "A question that the test expects was not asked.";
        ui::setMessageBoxHandler(m_before);
    }
    Q_DISABLE_COPY(MessageLog)

    /// Answers the next question that has no answer yet.
    void answerWith(ui::Answer answer) { m_answers += answer; }

    /// The boxes shown since the last call.
    Boxes take() { return std::exchange(m_boxes, {}); }

private:
    ui::Answer show(const Box &box)
    {
        m_boxes += box;
        if (box.buttons == ui::Buttons::Ok)
            return ui::Answer::Ok;
        if (!m_answers.empty())
            return m_answers.takeFirst();
        ADD_FAILURE() << "Unexpected question: " << testing::PrintToString(box);
        return ui::Answer::Cancel;
    }

    Boxes m_boxes;
    QList<ui::Answer> m_answers;
    ui::MessageBoxHandler m_before;
};

} // namespace varnow::test
