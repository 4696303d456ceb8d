#pragma once

#include "base/RunObserver.h"

#include <QElapsedTimer>

#include <memory>
#include <vector>

namespace varnow::ui {

/// The user at a run over the database. When a part has lasted a second, a window tells what runs and how
/// many of how many records are done, and lets him stop it; no other window takes keys or clicks meanwhile.
/// A shorter part shows nothing.
class RunWindow : public RunObserver
{
public:
    RunWindow();
    ~RunWindow() override;

    void showMessage(const QString &text) override;
    void partBegins(const QString &what, int total) override;
    bool advance(int records) override;
    void partEnds() override;
    bool isStopped() const override { return m_isStopped; }

private:
    class Window;
    struct Part
    {
        QString what;
        int total = 0;
        int done = 0;
        QElapsedTimer sinceStart;
        qint64 nextShow = 0; // milliseconds since the start
        std::unique_ptr<Window> window;
    };

    void show(Part &part);

    std::vector<Part> m_parts; // the innermost last
    bool m_isStopped = false;
};

} // namespace varnow::ui
