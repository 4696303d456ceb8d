#include "ui/Application.h"

#include "ui/Window.h"

#include <QApplication>
#include <QCursor>

namespace varnow::ui {

namespace {

void showHourglass(bool shown)
{
    if (shown)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

} // namespace

Application::Application(int &argc, char **argv) : m_application(std::make_unique<QApplication>(argc, argv))
{
    QApplication::setApplicationName(QStringLiteral("varnow"));
    QApplication::setQuitOnLastWindowClosed(false);
}

Application::~Application() = default;

void runUntilNoWindowIsLoaded()
{
    if (!Window::loadedWindows().empty())
        QApplication::exec();
}

void handleEvents()
{
    QApplication::processEvents();
}

Hourglass::Hourglass() : m_isOutermost(!isShown())
{
    if (m_isOutermost)
        showHourglass(true);
}

Hourglass::~Hourglass()
{
    if (m_isOutermost)
        showHourglass(false);
}

bool Hourglass::isShown()
{
    return QApplication::overrideCursor() != nullptr;
}

Hourglass::Paused::Paused() : m_wasShown(isShown())
{
    if (m_wasShown)
        showHourglass(false);
}

Hourglass::Paused::~Paused()
{
    if (m_wasShown)
        showHourglass(true);
}

} // namespace varnow::ui
