#pragma once

#include "support/printing.h"

#include "ui/MessageBox.h"

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <utility>

namespace varnow::test {

/// One message box as the user would have seen it.
struct Box
{
    QString prompt;
    int style = 0;
    QString title = QStringLiteral("Configuration");

    bool operator==(const Box &) const = default;
};

using Boxes = QList<Box>;

inline void PrintTo(const Box &box, std::ostream *out)
{
    *out << "[" << qPrintable(box.title) << ", style " << box.style << "] " << qPrintable(box.prompt);
}

/// Records every message box while it lives, and answers in place of the user: questions as told, the rest
/// with OK. A question without an answer told fails the test.
class MessageLog
{
public:
    MessageLog()
        : m_before(ui::setMessageBoxHandler([this](const QString &prompt, int style, const QString &title) {
            return show({prompt, style, title});
        }))
    {
    }

    ~MessageLog()
    {
        EXPECT_TRUE(m_answers.empty()) << "A question that the test expects was not asked.";
        ui::setMessageBoxHandler(m_before);
    }
    Q_DISABLE_COPY(MessageLog)

    /// Answers the next question that has no answer yet.
    void answerWith(int answer) { m_answers += answer; }

    /// The boxes shown since the last call.
    Boxes take() { return std::exchange(m_boxes, {}); }

private:
    int show(const Box &box)
    {
        m_boxes += box;
        constexpr int buttons = 15;
        if ((box.style & buttons) == ui::style::OkOnly)
            return ui::answer::Ok;
        if (!m_answers.empty())
            return m_answers.takeFirst();
        ADD_FAILURE() << "Unexpected question: " << testing::PrintToString(box);
        return ui::answer::Cancel;
    }

    Boxes m_boxes;
    QList<int> m_answers;
    ui::MessageBoxHandler m_before;
};

} // namespace varnow::test
