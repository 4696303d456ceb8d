#include "editor/SaveCommands.h"

#include "base/text.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"
#include "ui/RunWindow.h"

#include <algorithm>

namespace varnow {

SaveCommands::SaveCommands(Document &document, EntryPages &pages, ConfigurationSwitch &configuration,
                           Notices &notices)
    : m_document(document), m_pages(pages), m_configuration(configuration), m_notices(notices)
{
}

void tellLoadFailure(const QStringList &warning)
{
    ui::show({(QStringList{"An unexpected error occurred while reading the",
                           "current Line and Line Fields configuration.",
                           "No current information is available and, if you"} +
               warning)
                  .join(lineBreak)});
}

void SaveCommands::reload()
{
    const ui::Hourglass hourglass;
    const Notices::Action action(m_notices);
    if (promptToSave() == ui::CloseDecision::StayOpen)
        return;
    m_pages.replace([this] {
        m_pages.empty();
        ui::RunWindow run;
        if (m_document.reload(run) != 0)
            tellLoadFailure({"'Save' this configuration, any current information", "will be lost."});
        m_pages.fields().clearChoices();
        m_configuration.refresh();
        m_pages.fields().empty();
        m_pages.turnTo(RecordKind::Line);
        m_pages.fields().settleEntries();
        m_pages.setUnchanged();
    });
}

void SaveCommands::save()
{
    const ui::Hourglass hourglass;
    m_configuration.tellProblems();
    ui::RunWindow run;
    if (m_document.save(run).result.code == 0)
        m_pages.setUnchanged();
    tellTyped();
}

/// A save writes what Change has stored, not what stands in the entries.
void SaveCommands::tellTyped()
{
    const TypedEntries typed = m_pages.typed();
    if (typed.empty())
        return;
    const std::optional<RecordReference> &record = typed.front().record;
    const QString of = record && !record->key.name.isEmpty() ? " for " + shownName(record->key) : QString();
    m_notices.append({"The entries typed" + of + " are not stored.",
                      {{"Store it", "Stores what is entered, as Change does.",
                        [this, kind = typed.front().page->kind()] { onStore(m_pages.turnTo(kind)); }}}});
}

/// Stores what is typed on the pages. Returns false when a check has failed, which was told.
bool SaveCommands::storeTyped()
{
    const TypedEntries typed = m_pages.typed();
    return std::ranges::all_of(
        typed, [this](const TypedPage &page) { return onStore(m_pages.turnTo(page.page->kind())); });
}

ui::CloseDecision SaveCommands::promptToSave()
{
    m_configuration.tellProblems();
    if (m_document.hasGivenUp())
        return ui::CloseDecision::Close;
    if (!m_pages.isChanged() && !m_document.hasUnsavedChanges() && m_pages.typed().empty())
        return ui::CloseDecision::Close;
    const ui::Answer answer =
        ui::askYesNoCancel(QStringList{"Changes have been made to the configuration.",
                                       "Any changes will be lost if you continue without saving.",
                                       "Do you want to save changes now?"}
                               .join(lineBreak),
                           "Save Changes");
    if (answer == ui::Answer::Yes) {
        if (!storeTyped())
            return ui::CloseDecision::StayOpen;
        save();
    } else if (answer == ui::Answer::No) {
        m_document.giveUpUnsavedChanges();
    }
    return answer == ui::Answer::Cancel ? ui::CloseDecision::StayOpen : ui::CloseDecision::Close;
}

} // namespace varnow
