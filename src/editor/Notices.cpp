#include "editor/Notices.h"

#include "base/folders.h"
#include "base/names.h"
#include "base/text.h"
#include "ui/Application.h"

#include <utility>

namespace varnow {

namespace {

constexpr std::size_t mostButtons = 2;

} // namespace

Notices::Notices(ui::Window &window, Document &document) : m_document(document), m_bar(window)
{
    QObject::connect(&document, &Document::changed, &document, [this](const EditStep &step) {
        m_hasToldInAction = false; // the last step of an action is what counts
        tell(shownFor(noticeFor(step, m_document.model())));
    });
    QObject::connect(&document, &Document::saved, &document,
                     [this](const SaveReport &report) { tell(shownFor(noticeFor(report))); });
    QObject::connect(&document, &Document::loaded, &document, [this] { tellLoaded("Reloaded"); });
    QObject::connect(&document, &Document::keepingFailed, &document, [this] { tellNotKept(); });
}

void Notices::tell(const ui::Notice &notice)
{
    if (m_isActing && std::exchange(m_hasToldInAction, true))
        return append(notice);
    m_shown = notice;
    m_bar.show(m_shown);
}

void Notices::append(const ui::Notice &notice)
{
    ui::Notice joined = notice;
    if (!m_shown.sentence.isEmpty())
        joined.sentence = m_shown.sentence + ' ' + notice.sentence;
    joined.buttons.insert(joined.buttons.end(), m_shown.buttons.begin(), m_shown.buttons.end());
    if (joined.buttons.size() > mostButtons)
        joined.buttons.resize(mostButtons);
    m_shown = joined;
    m_bar.show(m_shown);
}

void Notices::tellLoaded(const QString &verb)
{
    const Model &model = m_document.model();
    tell({verb + ": " + counted(model.lines.size(), "line") + " and " +
          counted(model.fields.size(), "field") + '.'});
}

ui::Notice::Button Notices::undoButton()
{
    return {"Undo", "Takes back what was done last.", [this] { apply({}); }};
}

ui::Notice Notices::shownFor(const DocumentNotice &notice)
{
    ui::Notice shown{notice.sentence};
    for (const Remedy &remedy : notice.remedies)
        shown.buttons.push_back({remedy.caption, remedy.toolTip, [this, remedy] { apply(remedy); }});
    return shown;
}

void Notices::apply(const Remedy &remedy)
{
    if (remedy.kind == Remedy::Kind::ShowUnsaved)
        return onShowUnsaved();
    const ui::Hourglass hourglass;
    const Action action(*this);
    if (const std::optional<RecordReference> record = varnow::apply(remedy, m_document))
        onShow(*record);
}

void Notices::tellNotKept()
{
    if (!std::exchange(m_hasToldUnkept, true))
        append({"A crash would lose it: " + isolated(stateFolder()) + " can not be written."});
}

Notices::Action::Action(Notices &notices)
    : m_notices(notices), m_isOutermost(!std::exchange(notices.m_isActing, true))
{
    if (m_isOutermost)
        m_notices.m_hasToldInAction = false;
}

Notices::Action::~Action()
{
    if (m_isOutermost)
        m_notices.m_isActing = false;
}

} // namespace varnow
