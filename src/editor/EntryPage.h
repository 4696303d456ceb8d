#pragma once

#include "document/Document.h"
#include "editor/PageEntries.h"
#include "model/RecordReference.h"
#include "ui/Label.h"
#include "ui/TabControl.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace varnow {

/// How a removal ended.
enum class Removal { Declined, Failed, Done };

/// What a page makes of a step that changed its record.
enum class Following {
    Nothing,  ///< it shows what it showed
    Shown,    ///< it shows the new values
    Outdated, ///< something else is typed, and stays
};

/// A page of the editor on which records of one kind are entered. Making one adds it to the tabs. All
/// coordinates and sizes in twips.
class EntryPage
{
public:
    EntryPage(ui::TabControl &tabs, const QString &caption, RecordKind kind, Document &document);
    virtual ~EntryPage() = default;
    EntryPage(const EntryPage &) = delete;
    EntryPage &operator=(const EntryPage &) = delete;

    RecordKind kind() const { return m_kind; }
    /// What the recovery file calls the page.
    QString draftName() const { return m_kind == RecordKind::Line ? "line" : "field"; }

    /// The entries in the order in which Tab walks them.
    virtual std::vector<ui::Control *> focusOrder() = 0;
    /// Those that Tab reaches only behind the tree.
    virtual std::vector<ui::Control *> focusOrderBehindTree() { return {}; }
    /// Places the controls within the tab control.
    virtual void layOut() = 0;

    /// The page came to the front, or went.
    virtual void turnedTo() {}
    virtual void turnedAway() {}

    /// Shows a record of the configuration. Without such a record the entries are emptied.
    virtual void show(const QString &name, int nameIndex) = 0;
    /// Empties every entry.
    virtual void empty() = 0;
    /// Empties the page for a new record and proposes what can be known of it.
    virtual void clear() = 0;
    /// The same behind a record that was stored just now, which leaves what it most likely shares with the
    /// next.
    virtual void clearForNext() { clear(); }

    /// Checks the entries and stores the record that they make, which is then shown as it is stored. Returns
    /// it, or nothing after telling the user which checks failed.
    virtual std::optional<RecordReference> store(Edit &edit) = 0;
    /// Asks, and removes the record that the entries name. A failure has been shown.
    virtual Removal remove() = 0;

    /// The record that the entries name; nothing when they name none that the tree could show.
    std::optional<RecordReference> namedRecord() const;
    /// The line that the entries name.
    virtual std::optional<RecordKey> namedLine() const = 0;

    PageEntries &entries() { return m_entries; }
    /// Takes what stands in the entries for no longer typed: it was shown, stored or removed just now.
    void settleEntries();
    bool hasTypedEntries() const { return m_entries.texts() != m_settledEntries; }
    /// Shows the new values of the record, if the step changed it and nothing else is typed.
    Following follow(const EditStep &step);

    /// Moves the focus to the first entry.
    void focusFirst() { focusOrder().front()->setFocus(); }

protected:
    /// The entries of the record's name.
    virtual const ui::TextBox &nameBox() const = 0;
    virtual const ui::TextBox &nameIndexBox() const = 0;

    const Model &model() const { return m_document.model(); }
    const QString &configuration() const { return m_document.configuration(); }

    /// The controls' height is centred on a line; `left` is the label's edge. Returns the right edge.
    template <class Box>
    static void place(ui::Labelled<Box> &box, float labelLeft, float boxLeft, float centre)
    {
        box.label.move(labelLeft, centre - box.label.height() / 2);
        box.move(boxLeft, centre - box.height() / 2);
    }

    static constexpr float labelGap = 30; // between a label and its box

    ui::TabControl &m_tabs;
    ui::Container &m_surface;
    Document &m_document;
    PageEntries m_entries;

private:
    RecordKind m_kind;
    QStringList m_settledEntries;
    std::optional<RecordReference> m_shownRecord; // by the settled entries
};

} // namespace varnow
