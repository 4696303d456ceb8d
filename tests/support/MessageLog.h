#pragma once

#include "support/printing.h"

#include "ui/MessageBox.h"

#include <QString>

#include <deque>
#include <ostream>
#include <vector>

namespace varnow::test {

/// One message box as the user would have seen it.
struct Box
{
    QString prompt;
    int style = 0;
    QString title = QStringLiteral("Configuration");

    bool operator==(const Box &) const = default;
};

void PrintTo(const Box &box, std::ostream *out);

/// Records every message box while it lives, and answers in place of the user: questions as told, the rest
/// with OK. A question without an answer told fails the test.
class MessageLog
{
public:
    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog &) = delete;
    MessageLog &operator=(const MessageLog &) = delete;

    /// Answers the next question that has no answer yet.
    void answerWith(int answer) { m_answers.push_back(answer); }

    /// The boxes shown since the last call.
    std::vector<Box> take();

private:
    int show(const Box &box);

    std::vector<Box> m_boxes;
    std::deque<int> m_answers;
    ui::MessageBoxHandler m_before;
};

} // namespace varnow::test
