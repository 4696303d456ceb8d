#pragma once

#include "editor/FieldPage.h"
#include "editor/LinePage.h"
#include "ui/TabControl.h"

#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

namespace varnow {

/// What a user had typed on a page.
struct TypedPage
{
    EntryPage *page;
    QStringList texts;
    std::optional<RecordReference> record; ///< that the texts name
};
using TypedEntries = std::vector<TypedPage>;

/// The pages of the editor. Those that show a record follow its changes. What a user has typed and not stored
/// is known, so that nothing replaces it without a word.
class EntryPages
{
public:
    EntryPages(ui::Container &window, Document &document);

    /// What was typed there is no longer in the entries.
    std::function<void(const TypedEntries &typed)> onReplaced;
    /// A record was changed while something else was typed on its page, which stays.
    std::function<void(const RecordReference &record)> onOutdated;
    /// Another page, record or line is shown.
    std::function<void()> onShown;

    /// Lets the pages follow the document from now on, behind those who follow it already.
    void subscribe();

    ui::TabControl &tabs() { return m_tabs; }
    LinePage &lines() { return m_lines; }
    FieldPage &fields() { return m_fields; }
    EntryPage &shown() { return page(m_tabs.currentPage() == 0 ? RecordKind::Line : RecordKind::Field); }
    const std::vector<EntryPage *> &all() const { return m_pages; }

    /// The page of this name, as drafts have it; null without one.
    EntryPage *named(const QString &name) const;

    /// Brings the page for records of a kind to the front.
    EntryPage &turnTo(RecordKind kind);
    void empty();

    /// Shows a record of the configuration on its page; a field's line too.
    void show(const RecordReference &record);

    /// Does what fills the entries anew. What was typed there and is gone behind it is told.
    void replace(const std::function<void()> &show);
    /// Puts what was typed into the entries again.
    void bringBack(const TypedEntries &typed);
    /// The pages on which something is typed that was not stored.
    TypedEntries typed() const;

    /// Something was entered since the last load or save, or since the page of fields came to the front.
    bool isChanged() const { return m_isChanged; }
    void setUnchanged() { m_isChanged = false; }

    /// Lets Tab walk the controls: those of the pages between two lists.
    std::vector<ui::Control *> focusOrder(std::vector<ui::Control *> before,
                                          const std::vector<ui::Control *> &behind) const;

private:
    EntryPage &page(RecordKind kind);
    void turned();
    void entered();
    void keepDrafts();
    void follow(const EditStep &step);

    Document &m_document;
    ui::TabControl m_tabs;
    LinePage m_lines{m_tabs, m_document};
    FieldPage m_fields{m_tabs, m_document, m_lines};
    std::vector<EntryPage *> m_pages{&m_lines, &m_fields}; // in the order of their tabs
    QTimer m_keepTimer; // runs from an entry until it is handed to the recovery file
    bool m_isReplacing = false;
    bool m_isChanged = false;
};

} // namespace varnow
