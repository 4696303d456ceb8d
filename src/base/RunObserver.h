#pragma once

#include <QString>

namespace varnow {

/// The user, as a run over the database knows him: he is told how far it is and what happened, and may stop
/// it. The windows that do so are handed in from above.
class RunObserver
{
public:
    virtual ~RunObserver() = default;

    /// Shows a message and waits until it is read.
    virtual void showMessage(const QString &text) = 0;

    /// A part of the run begins. `total` is its number of records, 0 while nobody knows it. Parts may stand
    /// inside one another; stopping one stops those around it.
    virtual void partBegins(const QString &what, int total) = 0;
    /// So many more records of the innermost part have begun; 0 while it waits for the database. To be called
    /// often, for it lets the user act. Returns false when he has stopped it.
    virtual bool advance(int records) = 0;
    virtual void partEnds() = 0;
    /// Whether the user has stopped a part that has not ended.
    virtual bool isStopped() const = 0;
};

/// A part of a run, from the making of this object to its end.
class RunPart
{
public:
    RunPart(RunObserver &observer, const QString &what, int total = 0) : m_observer(observer)
    {
        observer.partBegins(what, total);
    }
    ~RunPart() { m_observer.partEnds(); }
    RunPart(const RunPart &) = delete;
    RunPart &operator=(const RunPart &) = delete;

    bool advance(int records) { return m_observer.advance(records); }
    bool step() { return advance(1); }
    bool isStopped() const { return m_observer.isStopped(); }

private:
    RunObserver &m_observer;
};

} // namespace varnow
