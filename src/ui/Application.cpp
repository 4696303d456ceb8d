#include "ui/Application.h"

#include "ui/Window.h"

#include <QApplication>
#include <QCursor>

namespace varnow::ui {

namespace {

constexpr int hourglass = 11;

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

QString applicationTitle()
{
    return QStringLiteral("Varnow");
}

void setScreenPointer(int pointer)
{
    if (pointer == screenPointer())
        return;
    if (pointer == hourglass)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

int screenPointer()
{
    return QApplication::overrideCursor() != nullptr ? hourglass : 0;
}

} // namespace varnow::ui
