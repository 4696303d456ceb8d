#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

class QWidget;

namespace varnow::ui {

class Control;

/// A place inside a container. All figures in twips (1/1440 inch). A control whose place has no size is laid
/// out by its window.
struct Rect
{
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

/// Pixels to the twip in each direction.
struct Scale
{
    float x = 0;
    float y = 0;
};

/// The window as its controls see it.
class ControlHost
{
public:
    virtual ~ControlHost() = default;
    virtual Scale scale() const = 0;
    virtual void add(Control &control) = 0;
    virtual void remove(Control &control) = 0;
};

/// What controls stand on: a window, a frame, a panel, a page of a tab control.
class Container
{
public:
    virtual ~Container() = default;
    virtual ControlHost &host() = 0;
    virtual QWidget *surface() = 0;
    /// Pixels from the corner that places count from to the corner of the surface.
    virtual QPoint origin() const { return {}; }
    /// Told about every control made on this container.
    virtual void adopt(Control &) {}
};

/// What all controls share: a name, a place in twips relative to the container, the enabled state, the focus.
class Control
{
public:
    virtual ~Control();
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;

    float left() const { return m_place.left; }
    float top() const { return m_place.top; }
    float width() const { return m_place.width; }
    float height() const { return m_place.height; }
    void move(float left, float top);
    void move(const Rect &place);

    bool isEnabled() const;
    void setEnabled(bool enabled);

    void setFocus();
    /// Whether Tab stops at the control.
    void setTabStop(bool stop);

    /// What a screen reader calls the control; its caption when nothing is set.
    virtual void setAccessibleName(const QString &name);

    /// A sentence about the control, for the pointer over it and for screen readers.
    void setToolTip(const QString &sentence);

    /// Pixels that the control needs to show its caption or entry whole at its designed size. They decide the
    /// scale, so room that looks good but stays blank is not among them.
    virtual QSize neededPixels() const;

    /// Puts the control on the screen at its place, if it has one, at the scale that its window has now.
    virtual void applyPlace();

    QWidget *widget() const { return m_widget; }

protected:
    /// Takes over the widget, whose parent is the container's surface.
    Control(Container &parent, const QString &name, QWidget *widget, const Rect &place);

    /// Height of what letters paint in the control's font: less than a line, which has blank room.
    int letterHeight() const;
    /// Height of a line in the control's font, with the pixel that an entry leaves above and below.
    int lineHeight() const;
    /// Pixels of height that the widget wants even where the scale gives its place less: then it stands out
    /// above and below by the same, where no other control is.
    virtual int wantedHeight() const { return 0; }

private:
    ControlHost &m_host;
    Container &m_parent;
    QWidget *m_widget;
    Rect m_place;
};

} // namespace varnow::ui
