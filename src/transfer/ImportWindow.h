#pragma once

#include "document/Document.h"
#include "exchange/ImportPlan.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/ListWindow.h"
#include "ui/Table.h"

#include <QMap>

#include <optional>
#include <vector>

class QFileInfo;

namespace varnow {

/// Shows what importing files would do, row by row, before anything is done.
class ImportWindow : public ui::ListWindow
{
public:
    explicit ImportWindow(const Document &document);

    /// Shows the window with the rows of these files. Returns the import that the user wants, if he does.
    std::optional<ImportPlan> ask(const QStringList &paths);

private:
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

    ui::CheckBox m_current{*this, "intoCurrent", "All rows into the configuration &shown"};
    ui::Label m_result{*this, "result", ""};
    ui::Table m_list{*this, "importList", {"Result", "Row", "Configuration", "Record", "Details"}};
    ui::CommandButton m_import{*this, "import", "&Import"};
    ui::CommandButton m_add{*this, "addFiles", "&Add files…"};
    ui::CommandButton m_saveRefused{*this, "saveRefused", "Save &refused…"};
};

} // namespace varnow
