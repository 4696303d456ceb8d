#pragma once

#include "base/RunObserver.h"

#include <QStringList>

#include <functional>
#include <utility>

namespace varnow::test {

/// Watches a run as a user would, without windows: writes down what it is told, and stops it on demand.
class RunLog : public RunObserver
{
public:
    /// Called for every message, after it was written down.
    std::function<void(const QString &text)> onMessage;
    /// Asked whenever a part advances, with the number of its records that had begun before; false stops the
    /// run.
    std::function<bool(const QString &part, int record)> goesOn;

    /// The messages shown since the last call.
    QStringList takeMessages() { return std::exchange(m_messages, {}); }

    void showMessage(const QString &text) override
    {
        m_messages += text;
        if (onMessage)
            onMessage(text);
    }

    void partBegins(const QString &what, int) override
    {
        if (m_parts.empty())
            m_isStopped = false;
        m_parts += {what, 0};
    }

    bool advance(int records) override
    {
        auto &[part, record] = m_parts.last();
        if (goesOn && !goesOn(part, std::exchange(record, record + records)))
            m_isStopped = true;
        return !m_isStopped;
    }

    void partEnds() override { m_parts.removeLast(); }
    bool isStopped() const override { return m_isStopped; }

private:
    QStringList m_messages;
    QList<std::pair<QString, int>> m_parts; // the innermost last
    bool m_isStopped = false;
};

} // namespace varnow::test
