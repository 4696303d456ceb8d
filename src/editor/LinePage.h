#pragma once

#include "editor/EntryPage.h"
#include "ui/MessageBox.h"

namespace varnow {

/// The page on which lines are entered.
class LinePage : public EntryPage
{
public:
    LinePage(ui::TabControl &tabs, EditorState &state);

    /// Shows the configuration's first line. Without one the message that tells so is returned.
    std::optional<ui::MessageBox> showFirst();
    /// Shows the line with this name, blanks around it ignored, and name index, any one below 1. Without such
    /// a line the entries are emptied.
    void show(const QString &name, int nameIndex);

    QString lineName() const { return m_name.text(); }
    /// The line as the field page lists it: its name, and its name index where that is above 0.
    QString lineChoice() const;

    std::vector<ui::Control *> focusOrder() override { return {&m_name, &m_index, &m_messageIndex}; }
    void layOut() override;
    void empty() override;
    void clear() override;
    std::optional<NodePlace> store() override;
    std::optional<RecordReference> namedRecord() const override;
    Removal remove() override;

private:
    using TextBox = ui::Labelled<ui::TextBox>;

    void show(const Line &line);
    bool removeLine();

    TextBox m_name{m_surface, "lineName", "Name", {0, 0, 420, 195}, {0, 0, 1245, 315}};
    TextBox m_index{m_surface, "lineIndex", "Index", {0, 0, 390, 195}, {0, 0, 500, 315}};
    TextBox m_messageIndex{
        m_surface, "lineMessageIndex", "Message Index", {0, 0, 1080, 195}, {0, 0, 500, 315}};
};

} // namespace varnow
