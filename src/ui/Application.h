#pragma once

#include <QString>

#include <functional>
#include <memory>

class QApplication;

namespace varnow::ui {

/// The windowing toolkit, alive as long as this object. One per process, made before any control.
class Application
{
public:
    /// Where no display can be opened, says so on the standard error and ends the process with exit code 1.
    Application(int &argc, char **argv);
    ~Application();

private:
    std::unique_ptr<QApplication> m_application;
};

/// Handles events until no window of the program is loaded.
void runUntilNoWindowIsLoaded();

/// Handles the events that wait, without waiting for more.
void handleEvents();

/// Makes the text what the user pastes next.
void copyToClipboard(const QString &text);

/// While such an object lives, the user is asked before his session on the desktop ends: `mayEnd` returns
/// whether it may; false calls the end off. One at a time.
class SessionEnd
{
public:
    explicit SessionEnd(const std::function<bool()> &mayEnd);
    ~SessionEnd();
    SessionEnd(const SessionEnd &) = delete;
    SessionEnd &operator=(const SessionEnd &) = delete;
};

/// The pointer over all windows is the hourglass while such an object lives.
class Hourglass
{
public:
    Hourglass();
    ~Hourglass();
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;

    static bool isShown();

    /// Shows the default pointer for as long as it lives.
    class Paused
    {
    public:
        Paused();
        ~Paused();
        Paused(const Paused &) = delete;
        Paused &operator=(const Paused &) = delete;

    private:
        bool m_wasShown;
    };

private:
    bool m_isOutermost;
};

} // namespace varnow::ui
