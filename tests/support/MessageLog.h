#pragma once

#include "support/printing.h"

#include "ui/MessageBox.h"

#include <QList>
#include <QString>

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

void PrintTo(const Box &box, std::ostream *out);

/// Records every message box while it lives, and answers in place of the user: questions as told, the rest
/// with OK. A question without an answer told fails the test.
class MessageLog
{
public:
    MessageLog();
    ~MessageLog();

    /// Answers the next question that has no answer yet.
    void answerWith(int answer) { m_answers += answer; }

    /// The boxes shown since the last call.
    Boxes take() { return std::exchange(m_boxes, {}); }

private:
    int show(const Box &box);

    Boxes m_boxes;
    QList<int> m_answers;
    ui::MessageBoxHandler m_before;
};

} // namespace varnow::test
