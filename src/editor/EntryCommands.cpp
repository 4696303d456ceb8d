#include "editor/EntryCommands.h"

#include "base/text.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"

namespace varnow {

namespace {

bool exists(const Model &model, const RecordReference &record)
{
    const auto isIn = [&](const auto &table) {
        return table.find(record.key.configuration, record.key.name, record.key.nameIndex) >= 0;
    };
    return record.kind == RecordKind::Line ? isIn(model.lines) : isIn(model.fields);
}

} // namespace

EntryCommands::EntryCommands(Document &document, RecordTree &tree, EntryPages &pages,
                             ConfigurationSwitch &configuration, Notices &notices)
    : m_document(document), m_tree(tree), m_pages(pages), m_configuration(configuration), m_notices(notices)
{
    m_tree.onRecordClick = [this](const RecordReference &record) {
        m_pages.replace([&] { m_pages.show(record); });
    };
    m_tree.onEdit = [this] { m_pages.shown().focusFirst(); };
    m_tree.onDelete = [this] { removeSelected(); };
    m_pages.onReplaced = [this](const TypedEntries &typed) { tellReplaced(typed); };
    m_pages.onOutdated = [this](const RecordReference &record) { tellOutdated(record); };
    m_notices.onShow = [this](const RecordReference &record) { showStep(record); };
}

void EntryCommands::show(const RecordReference &record)
{
    m_pages.replace([&] {
        if (m_document.configuration() != record.key.configuration)
            m_document.showConfiguration(record.key.configuration);
        m_tree.select(record);
        m_pages.show(record);
    });
}

/// Shows the first record that a step changed, where it still is there, and the configuration in any case.
void EntryCommands::showStep(const RecordReference &record)
{
    if (exists(m_document.model(), record))
        show(record);
    else if (m_document.configuration() != record.key.configuration)
        m_document.showConfiguration(record.key.configuration);
}

void EntryCommands::tellReplaced(const TypedEntries &typed)
{
    const std::optional<RecordReference> &record = typed.front().record;
    const QString of = record && !record->key.name.isEmpty() ? " for " + shownName(record->key) : QString();
    m_notices.tell({"The entries typed" + of + " were not stored.",
                    {{"Bring them back", "Puts what was typed into the entries again.", [this, typed] {
                          const Notices::Action action(m_notices);
                          m_notices.tell({"The entries are back; they are not stored yet."});
                          m_pages.bringBack(typed);
                      }}}});
}

void EntryCommands::tellOutdated(const RecordReference &record)
{
    const QString name = (record.kind == RecordKind::Line ? "Line " : "Field ") + shownName(record.key);
    m_notices.append({name + " has changed meanwhile; what is typed for it is not stored.",
                      {{"Show it", "Shows the record as it is now.", [this, record] { show(record); }}}});
}

void EntryCommands::clear()
{
    EntryPage &page = m_pages.shown();
    m_pages.replace([&page] {
        page.clear();
        page.settleEntries();
    });
}

bool EntryCommands::change()
{
    const ui::Hourglass hourglass;
    const Notices::Action action(m_notices);
    m_configuration.tellProblems();
    if (!m_configuration.hasConfiguration())
        return false;
    EntryPage &page = m_pages.shown();
    page.entries().trim(); // the focus is still in one of them when the menu's key asks for the change
    std::optional<RecordReference> stored;
    const bool hasChanged = m_document.edit({}, [&](Edit &edit) { stored = page.store(edit); });
    if (!stored)
        return false;
    if (!hasChanged)
        m_notices.tell({"Nothing was changed: the record is as it was."});
    bringIntoView(*stored);
    page.focusFirst();
    return true;
}

void EntryCommands::changeAndNext()
{
    if (!change())
        return;
    EntryPage &page = m_pages.shown();
    page.clearForNext();
    page.settleEntries();
    if (m_pages.onShown)
        m_pages.onShown();
}

bool EntryCommands::selectPlaceOf(const Field &field)
{
    return m_tree.selectPlace(field.messageIndex, field.position);
}

void EntryCommands::bringIntoView(const RecordReference &record)
{
    const Model &model = m_document.model();
    const auto indexIn = [&](const auto &table) {
        return table.find(record.key.configuration, record.key.name, record.key.nameIndex);
    };
    if (record.kind == RecordKind::Line ? m_tree.selectPlace(model.lines[indexIn(model.lines)].messageIndex)
                                        : selectPlaceOf(model.fields[indexIn(model.fields)]))
        return;
    ui::show({.text = QStringList{"An error occurred that prevented displaying the",
                                  "configuration correctly.  This is usually caused",
                                  "by an error in the configuration data.",
                                  "Save your data, restart the line configuration",
                                  "editor and enter data starting at that point."}
                          .join(lineBreak),
              .icon = ui::Icon::Information});
}

void EntryCommands::removeShown()
{
    const ui::Hourglass hourglass;
    const Notices::Action action(m_notices);
    m_configuration.tellProblems();
    EntryPage &page = m_pages.shown();
    const std::optional<RecordReference> record = page.namedRecord();
    const std::optional<RecordReference> neighbour = m_tree.neighbourOf(record);
    switch (page.remove()) {
    case Removal::Declined:
        return;
    case Removal::Failed:
        m_tree.select(record);
        return;
    case Removal::Done:
        m_tree.select(neighbour);
        return;
    }
}

void EntryCommands::removeSelected()
{
    if (m_tree.selectedRecord() == m_pages.shown().namedRecord())
        removeShown();
    else
        m_notices.tell(
            {"The page shows another line of this name, so nothing was removed. Enter the index of the line "
             "on the page."});
}

void EntryCommands::undo()
{
    const ui::Hourglass hourglass;
    const Notices::Action action(m_notices);
    m_configuration.tellProblems();
    if (const EditStep *step = m_document.undoable()) {
        const RecordReference record = firstRecordOf(*step);
        m_pages.replace([this] { m_document.undo(); });
        showStep(record);
    }
}

void EntryCommands::redo()
{
    const ui::Hourglass hourglass;
    const Notices::Action action(m_notices);
    m_configuration.tellProblems();
    if (const EditStep *step = m_document.redoable()) {
        const RecordReference record = firstRecordOf(*step);
        m_pages.replace([this] { m_document.redo(); });
        showStep(record);
    }
}

} // namespace varnow
