#pragma once

#include "editor/EditorState.h"
#include "editor/RecordTree.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/Label.h"
#include "ui/TabControl.h"
#include "ui/TextBox.h"

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace varnow {

/// Where the node of a record stands in the tree.
struct NodePlace
{
    int messageIndex = 0;
    std::optional<int> position = {}; ///< of a field
};

/// How a removal ended.
enum class Removal { Declined, Failed, Done };

/// A page of the editor on which records of one kind are entered. Making one adds it to the tabs and to the
/// editor's pages. All coordinates and sizes in twips.
class EntryPage
{
public:
    EntryPage(ui::TabControl &tabs, const QString &caption, EditorState &state);
    virtual ~EntryPage() = default;
    EntryPage(const EntryPage &) = delete;
    EntryPage &operator=(const EntryPage &) = delete;

    /// The entries in the order in which Tab walks them.
    virtual std::vector<ui::Control *> focusOrder() = 0;
    /// Those that Tab reaches only behind the tree.
    virtual std::vector<ui::Control *> focusOrderBehindTree() { return {}; }
    /// Places the controls within the tab control.
    virtual void layOut() = 0;

    /// The page came to the front, or went.
    virtual void turnedTo() {}
    virtual void turnedAway() {}

    /// Empties every entry.
    virtual void empty() = 0;
    /// Empties the page for a new record and proposes what can be known of it.
    virtual void clear() = 0;
    /// The same behind a record that was stored just now, which leaves what it most likely shares with the
    /// next.
    virtual void clearForNext() { clear(); }
    /// Checks the entries and stores the record that they make. Returns where its node stands, or nothing
    /// after telling the user which checks failed.
    virtual std::optional<NodePlace> store() = 0;
    /// The record that the entries name; nothing when they name none that the tree could show.
    virtual std::optional<RecordReference> namedRecord() const = 0;
    /// Asks, and removes the record that the entries name. A failure has been shown.
    virtual Removal remove() = 0;
    /// Lets the entries lose the blanks around their texts, also the one that has the focus.
    void trimEntries();
    /// What stands in the entries, and what is chosen.
    QStringList entries() const;
    void setEntries(const QStringList &entries);
    /// Takes what stands in the entries for no longer typed: it was shown, stored or removed just now.
    void settleEntries() { m_settledEntries = entries(); }
    bool hasTypedEntries() const { return entries() != m_settledEntries; }

    /// Moves the focus to the first entry.
    void focusFirst() { focusOrder().front()->setFocus(); }

protected:
    /// Lets the entry lose the blanks around its text when it is left, and mark changes.
    void connect(ui::TextBox &box);
    /// Lets the entry mark changes.
    void connect(ui::ComboBox &box);
    void connect(ui::OptionButton &option);
    void connect(ui::CheckBox &box);

    /// The record that these texts of entries name.
    std::optional<RecordReference> recordOf(RecordKind kind, const ui::TextBox &name,
                                            const ui::TextBox &nameIndex) const;

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
    EditorState &m_state;

private:
    /// One entry, its text or whether it is chosen.
    struct Entry
    {
        std::function<QString()> text;
        std::function<void(const QString &)> setText;
    };

    template <class Box> void keepText(Box &box);
    void markChanged() { m_state.changesMade = true; }

    std::vector<Entry> m_entries;
    std::vector<ui::TextBox *> m_textBoxes;
    QStringList m_settledEntries;
};

} // namespace varnow
