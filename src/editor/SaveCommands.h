#pragma once

#include "editor/ConfigurationSwitch.h"
#include "editor/Notices.h"
#include "ui/Window.h"

namespace varnow {

/// Saving, reloading and leaving, and the question about what would be lost.
class SaveCommands
{
public:
    /// All must outlive the commands.
    SaveCommands(Document &document, EntryPages &pages, ConfigurationSwitch &configuration, Notices &notices);

    /// Stores what is entered on a page. Returns whether that went well; if not, the user was told.
    std::function<bool(EntryPage &page)> onStore;

    void save();
    void reload();

    /// Asks whether to save what would be lost, and saves. StayOpen when the user wants neither.
    ui::CloseDecision promptToSave();

private:
    void tellTyped();
    bool storeTyped();

    Document &m_document;
    EntryPages &m_pages;
    ConfigurationSwitch &m_configuration;
    Notices &m_notices;
};

/// Tells that the records could not be loaded; `warning` is the end of the message.
void tellLoadFailure(const QStringList &warning);

} // namespace varnow
