#include "ui/Application.h"

#include "ui/Window.h"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QIcon>
#include <QSessionManager>

#include <cstdio>
#include <cstdlib>

namespace varnow::ui {

namespace {

/// The toolkit ends a process without a display by a crash, after several lines of its own.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg) {
        std::fputs("varnow: There is no display to open a window on.\n", stderr);
        std::_Exit(1);
    }
    if (!text.contains(u"display") && !text.contains(u"platform plugin"))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

QIcon icon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64}) // as frames and panels show it
        icon.addFile(QStringLiteral(":/icons/varnow-%1.png").arg(size));
    return icon;
}

void showHourglass(bool shown)
{
    if (shown)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

} // namespace

Application::Application(int &argc, char **argv)
{
    const QtMessageHandler before = qInstallMessageHandler(endWithoutDisplay);
    m_application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(before);
    QApplication::setApplicationName(QStringLiteral("varnow"));
    QApplication::setDesktopFileName(QStringLiteral("varnow"));
    QApplication::setWindowIcon(icon());
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

void copyToClipboard(const QString &text)
{
    QApplication::clipboard()->setText(text);
}

SessionEnd::SessionEnd(const std::function<bool()> &mayEnd)
{
    const auto ask = [mayEnd](QSessionManager &manager) {
        if (!manager.allowsInteraction())
            return;
        if (mayEnd())
            manager.release();
        else
            manager.cancel();
    };
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, qApp, ask, Qt::DirectConnection);
}

SessionEnd::~SessionEnd()
{
    QObject::disconnect(qApp, &QGuiApplication::commitDataRequest, qApp, nullptr);
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
