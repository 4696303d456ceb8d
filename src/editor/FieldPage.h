#pragma once

#include "editor/EntryPage.h"
#include "model/drafts.h"
#include "ui/Frame.h"
#include "ui/MessageBox.h"

namespace varnow {

class LinePage;

/// The page on which fields are entered.
class FieldPage : public EntryPage
{
public:
    /// `linePage` tells the line that a new field most likely belongs to.
    FieldPage(ui::TabControl &tabs, EditorState &state, const LinePage &linePage);

    /// Shows the field with this name, blanks around it ignored, and name index. Returns it, or nothing after
    /// emptying the page.
    std::optional<Field> show(const QString &name, int nameIndex);

    /// Refills the lines to choose from.
    void listLines();
    /// Refills the data field names to choose from out of the database. The message about a failure is
    /// returned.
    std::optional<ui::MessageBox> listDataFields();
    /// Empties both lists to choose from.
    void clearChoices();
    /// Disables what only a fixed-length field has.
    void followFixedLength();

    std::vector<ui::Control *> focusOrder() override;
    std::vector<ui::Control *> focusOrderBehindTree() override { return {&m_characterPosition}; }
    void layOut() override;
    void turnedTo() override;
    void turnedAway() override { m_fixedLength.setTabStop(false); }
    void empty() override;
    void clear() override;
    void clearForNext() override;
    std::optional<NodePlace> store() override;
    std::optional<RecordReference> namedRecord() const override;
    /// The line that the entries name.
    std::optional<RecordReference> chosenLine() const;
    Removal remove() override;

private:
    using TextBox = ui::Labelled<ui::TextBox>;
    using ComboBox = ui::Labelled<ui::ComboBox>;

    void addToolTips();
    std::vector<ui::TextBox *> textBoxes();
    FieldDraft entered() const;
    bool removeField();
    void chooseFilling(const Field &field);
    void takeOverMessageIndex();
    void proposePosition();

    const LinePage &m_linePage;

    TextBox m_name{m_surface, "fieldName", "Field Name", {0, 0, 1080, 195}, {0, 0, 1605, 315}};
    TextBox m_index{m_surface, "fieldIndex", "Index", {0, 0, 1080, 195}, {0, 0, 1605, 315}};
    ComboBox m_line{m_surface, "fieldLine", "Line (Index)", {0, 0, 1080, 195}, {0, 0, 1605, 315}};
    TextBox m_messageIndex{
        m_surface, "fieldMessageIndex", "Message Index", {0, 0, 1080, 195}, {0, 0, 1605, 315}};
    ComboBox m_lookup{m_surface, "lookup", "Lookup", {0, 0, 630, 195}, {0, 0, 1605, 315}};
    TextBox m_format{m_surface, "format", "Format", {0, 0, 630, 195}, {0, 0, 1605, 315}};
    TextBox m_constant{m_surface, "constant", "Constant", {0, 0, 630, 195}, {0, 0, 1605, 315}};
    TextBox m_position{m_surface, "position", "Position", {0, 0, 630, 195}, {0, 0, 1605, 315}};

    ui::Frame m_fixedLengthFrame{m_surface, "fixedLengthFrame", "", {0, 0, 2145, 2025}};
    ui::CheckBox m_fixedLength{m_fixedLengthFrame, "fixedLength", "Fixed Length Field", {60, 120, 2025, 285}};
    TextBox m_characterPosition{m_fixedLengthFrame,
                                "characterPosition",
                                "Character Position",
                                {60, 490, 1290, 195},
                                {1410, 430, 675, 315}};
    TextBox m_length{m_fixedLengthFrame, "length", "Length", {60, 830, 495, 195}, {1410, 770, 675, 315}};
    ui::Frame m_align{m_fixedLengthFrame, "align", "Align", {60, 1110, 1000, 855}};
    ui::OptionButton m_alignRight{m_align, "alignRight", "Right", {60, 255, 850, 225}};
    ui::OptionButton m_alignLeft{m_align, "alignLeft", "Left", {60, 540, 850, 225}};
    ui::Frame m_padding{m_fixedLengthFrame, "padding", "Padding", {1085, 1110, 1000, 855}};
    ui::OptionButton m_padSpaces{m_padding, "padSpaces", "Spaces", {60, 255, 850, 225}};
    ui::OptionButton m_padZeros{m_padding, "padZeros", "Zeros", {60, 540, 850, 225}};
};

} // namespace varnow
