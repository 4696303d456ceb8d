#pragma once

#include <QElapsedTimer>
#include <QString>

#include <memory>

namespace varnow {

/// Shows that a long run lives. When it has lasted a second, a window tells what runs and how many of how
/// many records are done, and lets the user stop it; no other window takes keys or clicks meanwhile.
/// A shorter run shows nothing. Runs may stand inside one another: stopping one stops those around it.
class Progress
{
public:
    /// `total` is the number of records, 0 while nobody knows it.
    explicit Progress(const QString &what, int total = 0);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /// To be called before each record. Returns false when the user has stopped the run.
    bool step();
    bool isStopped() const;

    /// Counts a row that arrives from the database, if it arrives for a run that does not know its number of
    /// records. Returns false when the user has stopped that run.
    static bool countRow();

private:
    class Window;
    void show();

    QString m_what;
    int m_total;
    int m_done = 0;
    bool m_stopped = false;
    QElapsedTimer m_sinceStart;
    qint64 m_nextShow; // milliseconds since the start
    std::unique_ptr<Window> m_window;
    Progress *m_outer;
};

} // namespace varnow
