#pragma once

#include "editor/EntryPages.h"
#include "editor/RecordTree.h"
#include "ui/ComboBox.h"
#include "ui/MessageBox.h"

#include <vector>

namespace varnow {

/// Shows the configuration of the document: its name in the box, its tree, its first line, and what there is
/// to choose from.
class ConfigurationSwitch
{
public:
    /// All must outlive the switch.
    ConfigurationSwitch(ui::ComboBox &box, RecordTree &tree, EntryPages &pages, Document &document);

    /// The tree does not show some records, which no box has told.
    std::function<void(const RecordTree::Unshown &unshown)> onUnshown;

    /// Fills the list with the catalogue.
    void listConfigurations();
    /// Shows the default configuration from its beginning.
    void refresh();
    /// Tells what has not been told of the configuration while its name was typed. To be called before a box
    /// or a window that the user asks for.
    void tellProblems();
    /// Whether a configuration is chosen or typed; a box asks for one.
    bool hasConfiguration() const;

private:
    void takeText();
    void follow();
    void rebuildTree(RecordTree::Boxes boxes);
    void tell(const RecordTree::Unshown &unshown) const;

    ui::ComboBox &m_box;
    RecordTree &m_tree;
    EntryPages &m_pages;
    Document &m_document;
    bool m_isFromBox = false;   // the user, or Refresh, has set the box
    bool m_isFollowing = false; // the box is set to the document's configuration

    // What is to be told as soon as the name is no longer being typed.
    bool m_treeHasBoxes = false;
    std::vector<ui::MessageBox> m_problems;
};

} // namespace varnow
