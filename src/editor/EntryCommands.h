#pragma once

#include "editor/ConfigurationSwitch.h"
#include "editor/Notices.h"

#include <optional>

namespace varnow {

/// What the user does to records: showing, storing, removing, undoing. What a page has typed and is replaced
/// can be brought back.
class EntryCommands
{
public:
    /// All must outlive the commands.
    EntryCommands(Document &document, RecordTree &tree, EntryPages &pages, ConfigurationSwitch &configuration,
                  Notices &notices);

    /// Shows a record, its node selected, in its configuration.
    void show(const RecordReference &record);

    void clear();
    /// Stores what is entered on the shown page. Returns whether that went well.
    bool change();
    /// Stores the record that is entered and makes the page ready for the next one.
    void changeAndNext();
    /// Removes the record that the shown page names.
    void removeShown();
    /// Removes the record whose node is selected. A page shows the first line of a name where the index is 0;
    /// that one is not meant.
    void removeSelected();
    void undo();
    void redo();

private:
    void tellReplaced(const TypedEntries &typed);
    void tellOutdated(const RecordReference &record);
    void showStep(const RecordReference &record);
    bool selectPlaceOf(const Field &field);
    void bringIntoView(const RecordReference &record);

    Document &m_document;
    RecordTree &m_tree;
    EntryPages &m_pages;
    ConfigurationSwitch &m_configuration;
    Notices &m_notices;
};

} // namespace varnow
