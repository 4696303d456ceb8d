#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace varnow::ui {

class Window;

/// What is told to the user without a box in the way.
struct Notice
{
    /// A button beside the sentence.
    struct Button
    {
        QString caption;
        QString toolTip;
        std::function<void()> onClick;
    };

    QString sentence;                 ///< names in it as isolated() gives them
    std::vector<Button> buttons = {}; ///< two at most
};

/// The line at the foot of a window that tells what was done. Names too long for it are shortened in the
/// middle; the whole sentence is its tooltip. Its buttons leave the focus where the user was.
class NoticeBar
{
public:
    explicit NoticeBar(Window &window);

    void show(const Notice &notice);

private:
    class Widget;
    Widget *m_widget;
};

} // namespace varnow::ui
