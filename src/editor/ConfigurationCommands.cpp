#include "editor/ConfigurationCommands.h"

#include "base/names.h"
#include "transfer/TargetWindow.h"
#include "transfer/exportConfiguration.h"
#include "transfer/importFiles.h"
#include "ui/Application.h"

#include <algorithm>

namespace varnow {

ConfigurationCommands::ConfigurationCommands(Document &document, EntryPages &pages,
                                             ConfigurationSwitch &configuration, Notices &notices)
    : m_document(document), m_pages(pages), m_configuration(configuration), m_notices(notices)
{
}

void ConfigurationCommands::showNew()
{
    m_configuration.tellProblems();
    const std::optional<TargetWindow::Target> target =
        TargetWindow(m_document, TargetWindow::Purpose::New).ask();
    if (!target)
        return;
    const Notices::Action action(m_notices);
    const QString &name = target->configuration;
    const LineTable &lines = m_document.model().lines;
    const bool isNew = std::ranges::find(lines, name, &Line::configuration) == lines.end();
    m_notices.tell({"Configuration " + isolated(name) + " is shown." +
                    (isNew ? " It is saved with its first line." : "")});
    m_pages.replace([&] {
        m_document.showConfiguration(name);
        if (!isNew)
            return;
        m_pages.empty();
        EntryPage &page = m_pages.turnTo(RecordKind::Line);
        page.clear();
        page.settleEntries();
    });
}

void ConfigurationCommands::copy()
{
    m_configuration.tellProblems();
    const QString source = m_document.configuration();
    const std::optional<TargetWindow::Target> target =
        TargetWindow(m_document, TargetWindow::Purpose::Copy).ask();
    if (!target)
        return;
    const ui::Hourglass hourglass;
    const Notices::Action action(m_notices);
    const QString names = isolated(source) + " to " + isolated(target->configuration);
    const EditLabel label{"copy of " + source + " to " + target->configuration,
                          "Copied " + names + "; it is not saved yet."};
    const bool hasCopied = m_document.edit(label, [&](Edit &edit) {
        copyConfiguration(edit.model(), source, target->configuration, target->equalKeys);
    });
    if (!hasCopied)
        m_notices.tell({"Nothing was copied from " + names + '.'});
    m_pages.replace([&] { m_document.showConfiguration(target->configuration); });
}

void ConfigurationCommands::import(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    m_configuration.tellProblems();
    const Notices::Action action(m_notices);
    if (const std::optional<QString> shown = importFiles(m_document, paths))
        m_pages.replace([&] { m_document.showConfiguration(*shown); });
}

void ConfigurationCommands::exportAs()
{
    m_configuration.tellProblems();
    if (!m_configuration.hasConfiguration())
        return;
    if (const std::optional<QString> sentence =
            exportConfiguration(m_document.model(), m_document.configuration()))
        m_notices.tell({*sentence});
}

} // namespace varnow
