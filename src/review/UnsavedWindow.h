#pragma once

#include "document/Document.h"
#include "model/RecordReference.h"
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
    /// The document must outlive the window.
    explicit UnsavedWindow(Document &document);

    /// The user wants to see a record in the editor.
    std::function<void(const RecordReference &record)> onShow;

private:
    /// A row of the list.
    struct Row
    {
        std::variant<UnsavedChange<Line>, UnsavedChange<Field>> entry;
        bool isConflict;
    };

    void addRows();
    void followDocument();
    void revert();
    void reapply();
    void showRecordOf(int row);
    void followSelection();
    std::vector<Row> selected(bool conflicts) const;

    Document &m_document;
    std::vector<Row> m_rows;

    ui::Table m_list{*this, "unsavedList", {"Kind", "Configuration", "Record", "Details"}};
    ui::CommandButton m_revert{*this, "revert", "&Take back"};
    ui::CommandButton m_reapply{*this, "reapply", "Take &over"};
};

} // namespace varnow
