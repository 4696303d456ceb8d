#include "ui/RunWindow.h"

#include "ui/Application.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/MessageBox.h"
#include "ui/Window.h"

namespace varnow::ui {

namespace {

constexpr qint64 untilFirstShow = 1000; // milliseconds
constexpr qint64 betweenShows = 100;    // milliseconds

} // namespace

class RunWindow::Window : public ui::Window
{
public:
    Window(RunWindow &run, const QString &whatRuns)
        : ui::Window("progress", "Configuration", 4200, 1700, Border::FixedDialog)
    {
        what.setCaption(whatRuns);
        stop.setCancel();
        stop.setToolTip("Stops this as soon as possible.");
        stop.onClick = [&run] { run.m_isStopped = true; };
        onCloseRequest = [&run, this] {
            if (m_partHasEnded)
                return CloseDecision::Close;
            run.m_isStopped = true;
            return CloseDecision::StayOpen;
        };
    }

    ~Window() override
    {
        m_partHasEnded = true;
        unload();
    }

    Label what{*this, "what", "", {120, 120, 3960, 225}};
    Label count{*this, "count", "", {120, 420, 3960, 225}};
    CommandButton stop{*this, "stop", "&Stop", {2565, 900, 1515, 600}};

private:
    bool m_partHasEnded = false;
};

RunWindow::RunWindow() = default;
RunWindow::~RunWindow() = default;

void RunWindow::showMessage(const QString &text)
{
    ui::show({text});
}

void RunWindow::partBegins(const QString &what, int total)
{
    if (m_parts.empty())
        m_isStopped = false;
    Part &part = m_parts.emplace_back();
    part.what = what;
    part.total = total;
    part.nextShow = untilFirstShow;
    part.sinceStart.start();
}

void RunWindow::partEnds()
{
    m_parts.pop_back();
}

bool RunWindow::advance(int records)
{
    if (m_isStopped)
        return false;
    Part &part = m_parts.back();
    if (part.sinceStart.elapsed() >= part.nextShow) {
        show(part);
        part.nextShow = part.sinceStart.elapsed() + betweenShows;
    }
    part.done += records;
    return !m_isStopped;
}

/// Opens the window or brings its count up to date, and lets the user press its button.
void RunWindow::show(Part &part)
{
    if (!part.window)
        part.window = std::make_unique<Window>(*this, part.what);
    part.window->count.setCaption(part.total > 0  ? QStringLiteral("%1 of %2").arg(part.done).arg(part.total)
                                  : part.done > 0 ? QString::number(part.done)
                                                  : QString());
    if (!part.window->isLoaded())
        part.window->showInFront();
    handleEvents();
}

} // namespace varnow::ui
