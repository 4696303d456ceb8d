#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace varnow {

/// Sees to it, where the system can, that no core file of this process is ever written: it would hold
/// passwords.
void forbidCoreFiles();

/// Lets all threads share one heap. Rows are read in a thread of their own, and what they took would stay in
/// its heap, of no use to the others.
void shareOneHeap();

/// While such an object lives, the process ends without a question when the system tells it to: after calling
/// `last`, by the exit code that such an end has, 128 and the number of the signal. Takes effect while events
/// are handled. One at a time.
class EndWhenTold
{
public:
    explicit EndWhenTold(const std::function<void()> &last);
    ~EndWhenTold();
    EndWhenTold(const EndWhenTold &) = delete;
    EndWhenTold &operator=(const EndWhenTold &) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace varnow
