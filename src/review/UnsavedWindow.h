#pragma once

#include "editor/RecordTree.h"
#include "model/Model.h"
#include "storage/recovery.h"
#include "ui/Button.h"
#include "ui/ListWindow.h"
#include "ui/Table.h"

#include <functional>
#include <variant>
#include <vector>

namespace varnow {

/// Lists what is not saved, and what an earlier run left that could not be brought back.
class UnsavedWindow : public ui::ListWindow
{
public:
    /// What is taken over goes from the conflicts. Both must outlive the window.
    UnsavedWindow(Model &model, LeftChanges &conflicts);

    /// The user wants to see a record in the editor.
    std::function<void(const RecordReference &record)> onShow;
    /// Records were changed; the sentence tells how.
    std::function<void(const QString &sentence)> onEdited;

    /// Lists what is unsaved now, if the window is open.
    void refill();

private:
    /// A row of the list.
    struct Row
    {
        std::variant<UnsavedChange<Line>, UnsavedChange<Field>> entry;
        bool isConflict;
    };

    void addRows();
    void revert();
    void reapply();
    void showRecordOf(int row);
    void followSelection();
    std::vector<Row> selected(bool conflicts) const;

    Model &m_model;
    LeftChanges &m_conflicts;
    std::vector<Row> m_rows;

    ui::Table m_list{*this, "unsavedList", {"Kind", "Configuration", "Record", "Details"}};
    ui::CommandButton m_revert{*this, "revert", "&Take back"};
    ui::CommandButton m_reapply{*this, "reapply", "Take &over"};
};

} // namespace varnow
