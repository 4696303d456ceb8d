#pragma once

#include "editor/EditorState.h"
#include "editor/RecordTree.h"
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
    explicit CheckWindow(EditorState &state);

    /// The user wants to see a record in the editor.
    std::function<void(const RecordReference &record)> onShow;
    /// Records were changed; the sentence tells how.
    std::function<void(const QString &sentence)> onEdited;

    /// Checks what is in memory anew, if the window is open.
    void refill();

private:
    /// A row of the list; one of the database where `row` is set.
    struct Item
    {
        Issue issue;
        std::optional<std::size_t> row; ///< index into what the database told
    };

    void askDatabase();
    void addRows();
    void showRecordOf(int item);
    void followSelection();
    void fix();

    EditorState &m_state;
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
