#pragma once

#include "document/Document.h"
#include "exchange/ImportPlan.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/Table.h"
#include "ui/Window.h"

#include <QMap>

#include <optional>
#include <vector>

class QFileInfo;

namespace varnow {

/// Shows what importing files would do, row by row, before anything is done. Sizes in twips.
class ImportWindow : public ui::Window
{
public:
    explicit ImportWindow(const Document &document);

    /// Shows the window with the rows of these files. Returns the import that the user wants, if he does.
    std::optional<ImportPlan> ask(const QStringList &paths);

private:
    void layOut();
    void addFiles(const QStringList &paths);
    void addFile(const QFileInfo &file);
    void makePlan();
    void listRows();
    void saveRefused();
    void accept();

    const Document &m_document;
    std::vector<ImportFile> m_files;
    QStringList m_paths;               // of these files
    QMap<QString, QString> m_problems; // of files that could not be read, by their paths
    ImportPlan m_plan;
    bool m_isAccepted = false;

    ui::CheckBox m_current{
        *this, "intoCurrent", "All rows into the configuration &shown", {120, 120, 4200, 285}};
    ui::Label m_result{*this, "result", "", {4500, 165, 8880, 195}};
    ui::Table m_list{*this,
                     "importList",
                     {"Result", "Row", "Configuration", "Record", "Details"},
                     {120, 525, 13260, 3600}};
    ui::CommandButton m_import{*this, "import", "&Import", {0, 0, 1700, 600}};
    ui::CommandButton m_add{*this, "addFiles", "&Add files…", {0, 0, 1700, 600}};
    ui::CommandButton m_saveRefused{*this, "saveRefused", "Save &refused…", {0, 0, 1900, 600}};
    ui::CommandButton m_cancel{*this, "cancel", "Cancel", {0, 0, 1700, 600}};
};

} // namespace varnow
