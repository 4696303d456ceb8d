#include "editor/EntryPages.h"

#include "ui/Application.h"

#include <algorithm>
#include <utility>

namespace varnow {

namespace {

constexpr int untilKept = 250; // milliseconds from a key until what is typed is handed to the recovery file

} // namespace

EntryPages::EntryPages(ui::Container &window, Document &document)
    : m_document(document), m_tabs(window, "pages", {120, 555, 9495, 2500})
{
    m_tabs.setAccessibleName("Entry pages");
    m_keepTimer.setSingleShot(true);
    m_keepTimer.setInterval(untilKept);
    m_keepTimer.callOnTimeout([this] { keepDrafts(); });
    m_tabs.onClick = [this] { turned(); };
    for (EntryPage *page : m_pages)
        page->entries().onEntered = [this] { entered(); };
}

void EntryPages::entered()
{
    m_isChanged = true;
    if (!m_keepTimer.isActive())
        m_keepTimer.start();
}

/// Hands what is typed and not stored to the recovery file.
void EntryPages::keepDrafts()
{
    std::vector<PageDraft> drafts;
    for (const TypedPage &page : typed())
        drafts.push_back({page.page->draftName(), m_document.configuration(), page.texts});
    m_document.keepDrafts(drafts);
}

EntryPage *EntryPages::named(const QString &name) const
{
    const auto found = std::ranges::find(m_pages, name, &EntryPage::draftName);
    return found == m_pages.end() ? nullptr : *found;
}

void EntryPages::subscribe()
{
    QObject::connect(&m_document, &Document::changed, &m_document,
                     [this](const EditStep &step) { follow(step); });
}

EntryPage &EntryPages::page(RecordKind kind)
{
    return **std::ranges::find(m_pages, kind, &EntryPage::kind);
}

EntryPage &EntryPages::turnTo(RecordKind kind)
{
    EntryPage &page = this->page(kind);
    m_tabs.setCurrentPage(static_cast<int>(std::ranges::find(m_pages, &page) - m_pages.begin()));
    return page;
}

void EntryPages::turned()
{
    const ui::Hourglass hourglass;
    EntryPage &front = shown();
    for (EntryPage *page : m_pages) {
        if (page != &front)
            page->turnedAway();
    }
    const bool wasTyped = front.hasTypedEntries();
    front.turnedTo();
    if (!wasTyped)
        front.settleEntries(); // a proposal is nothing typed
    if (&front == &m_fields)
        m_isChanged = false;
    if (onShown)
        onShown();
}

void EntryPages::empty()
{
    for (EntryPage *page : m_pages) {
        page->empty();
        page->settleEntries();
    }
}

void EntryPages::show(const RecordReference &record)
{
    const auto showOn = [](EntryPage &page, const QString &name, int nameIndex) {
        page.show(name, nameIndex);
        page.settleEntries();
    };
    showOn(turnTo(record.kind), record.key.name, record.key.nameIndex);
    const FieldTable &fields = m_document.model().fields;
    if (record.kind == RecordKind::Field) {
        const int index = fields.find(record.key.configuration, record.key.name, record.key.nameIndex);
        if (index >= 0)
            showOn(m_lines, fields[index].line, fields[index].lineIndex);
    }
    if (onShown)
        onShown();
}

TypedEntries EntryPages::typed() const
{
    TypedEntries typed;
    for (EntryPage *page : m_pages) {
        if (page->hasTypedEntries())
            typed.push_back({page, page->entries().texts(), page->namedRecord()});
    }
    return typed;
}

void EntryPages::replace(const std::function<void()> &show)
{
    if (m_isReplacing)
        return show();
    TypedEntries replaced = typed();
    m_isReplacing = true;
    show();
    m_isReplacing = false;
    std::erase_if(replaced, [](const TypedPage &page) { return page.page->entries().texts() == page.texts; });
    if (!replaced.empty())
        onReplaced(replaced);
}

void EntryPages::bringBack(const TypedEntries &typed)
{
    turnTo(typed.front().page->kind());
    replace([&typed] {
        for (const TypedPage &entries : typed)
            entries.page->entries().setTexts(entries.texts);
    });
    typed.front().page->focusFirst();
}

void EntryPages::follow(const EditStep &step)
{
    if (!step.lines.empty())
        m_fields.listLines();
    m_keepTimer.start(); // what was typed may be stored now
    bool isOther = false;
    for (EntryPage *page : m_pages) {
        const Following following = page->follow(step);
        isOther = isOther || following == Following::Shown;
        if (following == Following::Outdated && !m_isReplacing)
            onOutdated(*page->namedRecord());
    }
    if (isOther && onShown)
        onShown();
}

std::vector<ui::Control *> EntryPages::focusOrder(std::vector<ui::Control *> before,
                                                  const std::vector<ui::Control *> &behind) const
{
    const auto add = [&before](const std::vector<ui::Control *> &controls) {
        before.insert(before.end(), controls.begin(), controls.end());
    };
    for (EntryPage *page : m_pages)
        add(page->focusOrder());
    add(behind);
    for (EntryPage *page : m_pages)
        add(page->focusOrderBehindTree());
    return before;
}

} // namespace varnow
