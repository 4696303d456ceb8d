#pragma once

#include "ui/Control.h"
#include "ui/Menu.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace varnow::ui {

/// The answer to a request to close a window.
enum class CloseDecision { Close, StayOpen };

/// A top-level window. It is loaded by the first show and lives on, hidden, after its unload; a later show
/// loads it afresh.
class Window : public Container, public ControlHost
{
public:
    enum class Border { Sizable, FixedDialog };

    /// `innerWidth` and `innerHeight`: designed size of the client area in twips.
    Window(const QString &name, const QString &caption, float innerWidth, float innerHeight,
           Border border = Border::Sizable);
    ~Window() override;

    std::function<void()> onLoad;     ///< before the window is first seen
    std::function<void()> onActivate; ///< once per show, behind it; the first control has the focus then
    std::function<void()> onResize;
    std::function<void()> onDoubleClick;           ///< on the bare surface, outside every control
    std::function<CloseDecision()> onCloseRequest; ///< before every unload, by code or by the close box
    /// Files were dropped anywhere on the window. To be set before the window is first shown.
    std::function<void(const QStringList &paths)> onFilesDropped;

    bool isLoaded() const { return m_loaded; }
    bool isMinimised() const;

    /// Size of the client area in twips.
    float innerWidth() const;
    float innerHeight() const;

    /// Makes the window at least this large (outer size, twips), now and for the user's own resizing, as far
    /// as its screen has room.
    void enforceMinimumSize(float width, float height);
    /// The same for the client area in pixels.
    void enforceMinimumPixels(const QSize &inner);

    /// Shows the window without waiting; one that is open already comes to the front.
    void show();
    /// Shows the window, whole when this returns, and keeps the user out of all others while it is open.
    void showInFront();
    /// The same, and waits until the window is unloaded.
    void showModal();
    /// Unloads the window unless onCloseRequest refuses. Returns whether it is unloaded.
    bool unload();

    /// Adds a menu to the window's menu bar, which stands above the client area. To be called before the
    /// window is first shown.
    Menu addMenu(const QString &caption);

    /// Adds a bar at the foot of the window, below the client area and above the bars added before. Its
    /// parent is frameSurface(); it takes the height that it wants while it is not hidden.
    void addBar(QWidget *bar);
    /// The whole window, menu bar and bars at the foot included.
    QWidget *frameSurface();

    /// Order in which Tab walks the controls; the first of them has the focus when the window opens.
    void setFocusOrder(const std::vector<Control *> &controls);

    /// Every control of the window, those inside frames and tab pages included.
    const std::vector<Control *> &controls() const { return m_controls; }
    QWidget *surface() override;

    ControlHost &host() override { return *this; }
    Scale scale() const override { return m_scale; }
    void add(Control &control) override;
    void remove(Control &control) override;

    /// The windows that are loaded, in the order of their loading.
    static std::vector<Window *> loadedWindows();
    /// Unloads every loaded window, one after the other, each with its own handlers.
    static void unloadAll();

protected:
    /// The least scale at which every control shows its caption or entry whole at its designed size. A fixed
    /// dialog, which the user cannot widen, shows its own caption whole too.
    virtual Scale leastScale() const;

    QSize pixels(float width, float height) const;

private:
    class Widget;

    void load();
    void fit();
    void followDesktop();

    std::unique_ptr<Widget> m_widget;
    std::vector<Control *> m_controls;
    float m_designedWidth;
    float m_designedHeight;
    Border m_border;
    Scale m_scale;
    Control *m_firstInFocusOrder = nullptr;
    bool m_loaded = false;
    bool m_unloading = false;
};

} // namespace varnow::ui
