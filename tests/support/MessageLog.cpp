#include "support/MessageLog.h"

#include <gtest/gtest.h>

namespace varnow::test {

void PrintTo(const Box &box, std::ostream *out)
{
    *out << "[" << qPrintable(box.title) << ", style " << box.style << "] " << qPrintable(box.prompt);
}

MessageLog::MessageLog()
{
    m_before = ui::setMessageBoxHandler([this](const QString &prompt, int style, const QString &title) {
        return show({prompt, style, title});
    });
}

MessageLog::~MessageLog()
{
    EXPECT_TRUE(m_answers.empty()) << "A question that the test expects was not asked.";
    ui::setMessageBoxHandler(m_before);
}

int MessageLog::show(const Box &box)
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

} // namespace varnow::test
