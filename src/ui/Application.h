#pragma once

#include <QString>

#include <memory>

class QApplication;

namespace varnow::ui {

/// The windowing toolkit, alive as long as this object. One per process, made before any control.
class Application
{
public:
    Application(int &argc, char **argv);
    ~Application();

private:
    std::unique_ptr<QApplication> m_application;
};

/// Handles events until no window of the program is loaded.
void runUntilNoWindowIsLoaded();

/// Handles the events that wait, without waiting for more.
void handleEvents();

/// The application's title.
QString applicationTitle();

/// The pointer shown over all windows: 0 the default one, 11 the hourglass.
void setScreenPointer(int pointer);
int screenPointer();

} // namespace varnow::ui
