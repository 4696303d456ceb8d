#pragma once

#include "editor/ConfigurationSwitch.h"
#include "editor/Notices.h"

#include <QStringList>

namespace varnow {

/// What the user does to a whole configuration: a new one, a copy, import and export.
class ConfigurationCommands
{
public:
    /// All must outlive the commands.
    ConfigurationCommands(Document &document, EntryPages &pages, ConfigurationSwitch &configuration,
                          Notices &notices);

    /// Shows a configuration that has no records yet.
    void showNew();
    void copy();
    /// Shows what files bring, and takes it where the user wants it; without files nothing happens.
    void import(const QStringList &paths);
    void exportAs();

private:
    Document &m_document;
    EntryPages &m_pages;
    ConfigurationSwitch &m_configuration;
    Notices &m_notices;
};

} // namespace varnow
