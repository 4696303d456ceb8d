#include "util/modProgress.h"

#include "startup/modGlobals.h"
#include "ui/Application.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/Window.h"

#include <utility>

namespace varnow {

namespace {

constexpr qint64 untilFirstShow = 1000; // milliseconds
constexpr qint64 betweenShows = 100;    // milliseconds

Progress *current = nullptr;

} // namespace

class Progress::Window : public ui::Window
{
public:
    explicit Window(Progress &progress)
        : ui::Window("frmProgress", gMsgTitle, 4200, 1700, Border::FixedDialog)
    {
        cmdStop.setCancel();
        cmdStop.onClick = [&progress] { progress.m_stopped = true; };
        onQueryUnload = [&progress, this](bool &cancel) {
            progress.m_stopped = true;
            cancel = !m_done;
        };
    }

    ~Window() override
    {
        m_done = true;
        unload();
    }

    ui::Label lblWhat{*this, "lblWhat", "", {120, 120, 3960, 225}};
    ui::Label lblCount{*this, "lblCount", "", {120, 420, 3960, 225}};
    ui::CommandButton cmdStop{*this, "cmdStop", "&Stop", {2565, 900, 1515, 600}};

private:
    bool m_done = false;
};

Progress::Progress(const QString &what, int total)
    : m_what(what), m_total(total), m_nextShow(untilFirstShow), m_outer(std::exchange(current, this))
{
    m_sinceStart.start();
}

Progress::~Progress()
{
    current = m_outer;
}

bool Progress::isStopped() const
{
    return m_stopped || (m_outer != nullptr && m_outer->isStopped());
}

bool Progress::step()
{
    if (isStopped())
        return false;
    if (m_sinceStart.elapsed() >= m_nextShow) {
        show();
        m_nextShow = m_sinceStart.elapsed() + betweenShows;
    }
    ++m_done;
    return !isStopped();
}

bool Progress::countRow()
{
    return current == nullptr || current->m_total > 0 || current->step();
}

/// Opens the window or brings its count up to date, and lets the user press its button.
void Progress::show()
{
    if (!m_window) {
        m_window = std::make_unique<Window>(*this);
        m_window->lblWhat.setCaption(m_what);
        m_window->showInFront();
    }
    m_window->lblCount.setCaption(m_total > 0 ? QStringLiteral("%1 of %2").arg(m_done).arg(m_total)
                                              : QString::number(m_done));
    ui::handleEvents();
    if (m_stopped && m_outer != nullptr)
        m_outer->m_stopped = true;
}

} // namespace varnow
