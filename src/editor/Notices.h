#pragma once

#include "document/notices.h"
#include "ui/NoticeBar.h"

#include <functional>

namespace varnow {

/// Tells in the notice bar what was done, and what may not have been meant.
class Notices
{
public:
    Notices(ui::Window &window, Document &document);

    /// A button names a record to show.
    std::function<void(const RecordReference &record)> onShow;
    /// A button asks for the list of what is unsaved.
    std::function<void()> onShowUnsaved;

    /// Shows a notice in place of the last one, or behind it where both belong to one action.
    void tell(const ui::Notice &notice);
    /// Shows a notice behind the last one, its buttons first.
    void append(const ui::Notice &notice);
    /// Tells how many records there are.
    void tellLoaded(const QString &verb);

    /// Says once that a crash would lose what is unsaved.
    void tellNotKept();

    ui::Notice::Button undoButton();

    /// What is told while such an object lives belongs to one action of the user.
    class Action
    {
    public:
        explicit Action(Notices &notices);
        ~Action();
        Action(const Action &) = delete;
        Action &operator=(const Action &) = delete;

    private:
        Notices &m_notices;
        bool m_isOutermost;
    };

private:
    ui::Notice shownFor(const DocumentNotice &notice);
    void apply(const Remedy &remedy);

    Document &m_document;
    ui::NoticeBar m_bar;
    ui::Notice m_shown;
    bool m_isActing = false;
    bool m_hasToldInAction = false;
    bool m_hasToldUnkept = false; // that the recovery file can not be written
};

} // namespace varnow
