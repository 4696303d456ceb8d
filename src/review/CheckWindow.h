#pragma once

#include "document/Document.h"
#include "storage/rowIssues.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/ListWindow.h"
#include "ui/Table.h"

#include <functional>
#include <optional>
#include <vector>

namespace varnow {

/// Lists what is wrong with the records, in memory and in the database.
class CheckWindow : public ui::ListWindow
{
public:
    /// The document must outlive the window.
    explicit CheckWindow(Document &document);

    /// The user wants to see a record in the editor.
    std::function<void(const RecordReference &record)> onShow;

private:
    /// A row of the list; one of the database where `row` is set.
    struct Item
    {
        Issue issue;
        std::optional<std::size_t> row; ///< index into what the database told
    };

    void askDatabase();
    void addRows();
    void followDocument();
    void showRecordOf(int item);
    void followSelection();
    void fix();

    Document &m_document;
    std::vector<RowIssue> m_rows;
    bool m_tellsLetterCaseApart = true;
    QHash<QString, QStringList> m_dataFieldNames;
    std::vector<Item> m_items;

    ui::CheckBox m_all{*this, "allConfigurations", "&All configurations"};
    ui::Label m_result{*this, "result", ""};
    ui::Table m_list{*this, "issues", {"Configuration", "Finding"}};
    ui::CommandButton m_fix{*this, "fix", "&Fix"};
    ui::CommandButton m_again{*this, "again", "Chec&k again"};
};

} // namespace varnow
