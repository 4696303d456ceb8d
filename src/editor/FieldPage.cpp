#include "editor/FieldPage.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "base/text.h"
#include "editor/DataCheck.h"
#include "editor/LinePage.h"
#include "model/RecordReference.h"
#include "model/drafts.h"
#include "model/lineLayout.h"
#include "model/removal.h"
#include "storage/catalogue.h"

#include <algorithm>
#include <array>

namespace varnow {

FieldPage::FieldPage(ui::TabControl &tabs, Document &document, const LinePage &linePage)
    : EntryPage(tabs, "Line &Fields", RecordKind::Field, document), m_linePage(linePage)
{
    for (ui::TextBox *box : textBoxes())
        m_entries.add(*box);
    for (ui::ComboBox *box : {&m_line, &m_lookup})
        m_entries.add(*box);
    for (ui::OptionButton *option : {&m_alignRight, &m_alignLeft, &m_padSpaces, &m_padZeros})
        m_entries.add(*option);
    m_entries.add(m_fixedLength);
    m_line.onClick = [this] {
        m_entries.tellEntered();
        takeOverMessageIndex();
    };
    m_fixedLength.onClick = [this] { followFixedLength(); };
    m_fixedLength.setTabStop(false); // until the page is turned to
    addToolTips();
}

void FieldPage::addToolTips()
{
    m_name.setToolTip("The name of the field; it must not be blank.");
    m_index.setToolTip(
        "A number that tells this field from others of the same name; left blank, it becomes 0.");
    m_line.setToolTip(
        "The line that the field belongs to. Choose it, which fills in its message index too, or type "
        "its name with its index behind it in parentheses, as in NTE(1).");
    m_messageIndex.setToolTip(
        "The message index of the field's line, under which the tree shows the field; left "
        "blank, it counts as 0.");
    m_lookup.setToolTip(
        "The name of the data field that fills this one. Choose it or type it; it may stay blank "
        "where there is a constant.");
    m_format.setToolTip("The format of the value; it may stay blank.");
    m_constant.setToolTip("A value that is always the same; it may stay blank where there is a lookup.");
    m_position.setToolTip("The number of the field's place in its line; it must not be blank.");
    m_fixedLength.setToolTip("Tick it for a field that takes a certain stretch of characters of its line.");
    m_characterPosition.setToolTip(
        "Where a fixed-length field begins: the number of its first character, counted "
        "from 1 at the beginning of the line.");
    m_length.setToolTip("How many characters a fixed-length field takes.");
    m_alignRight.setToolTip(
        "The value stands at the right end of a fixed-length field, the padding before it.");
    m_alignLeft.setToolTip(
        "The value stands at the left end of a fixed-length field, the padding behind it.");
    m_padSpaces.setToolTip("Fills the rest of a fixed-length field with spaces.");
    m_padZeros.setToolTip("Fills the rest of a fixed-length field with zeros.");
}

std::vector<ui::TextBox *> FieldPage::textBoxes()
{
    return {&m_name,     &m_index,    &m_messageIndex, &m_format,
            &m_constant, &m_position, &m_length,       &m_characterPosition};
}

std::vector<ui::Control *> FieldPage::focusOrder()
{
    return {&m_name,     &m_index,       &m_line,   &m_messageIndex, &m_lookup,    &m_format,    &m_constant,
            &m_position, &m_fixedLength, &m_length, &m_alignRight,   &m_alignLeft, &m_padSpaces, &m_padZeros};
}

void FieldPage::layOut()
{
    const float firstColumn = m_messageIndex.width() + labelGap + m_messageIndex.label.width();
    const float secondColumn = m_constant.width() + labelGap + m_constant.label.width();
    const float columns = firstColumn + secondColumn + m_fixedLengthFrame.width();
    const float strip = m_tabs.tabHeight();
    const auto room = m_tabs.roomFor({columns, strip + m_fixedLengthFrame.height() + 2 * labelGap});
    const float gap = (room.width - columns) / 4;
    float row = 0;
    for (const ui::Control *control : std::initializer_list<ui::Control *>{
             &m_name, &m_index, &m_line, &m_messageIndex, &m_lookup, &m_format, &m_constant, &m_name.label})
        row = std::max(row, control->height());
    const float rowGap = (room.height - (4 * row + strip)) / 5;
    const auto centre = [&](int j) {
        const auto n = static_cast<float>(j);
        return strip + (n + 1) * rowGap + n * row + row / 2;
    };
    const auto placeAt = [&](auto &box, float labelLeft, int j) {
        place(box, labelLeft, labelLeft + box.label.width() + labelGap, centre(j));
    };
    placeAt(m_name, gap, 0);
    placeAt(m_index, gap, 1);
    placeAt(m_line, gap, 2);
    placeAt(m_messageIndex, gap, 3);
    const float second = 2 * gap + firstColumn;
    placeAt(m_lookup, second, 0);
    placeAt(m_format, second, 1);
    placeAt(m_constant, second, 2);
    placeAt(m_position, second, 3);
    const float lowestTop = room.height - m_fixedLengthFrame.height() - labelGap;
    m_fixedLengthFrame.move(3 * gap + firstColumn + secondColumn, std::min(centre(0) - 250, lowestTop));
}

void FieldPage::turnedTo()
{
    if (m_line.text().isEmpty()) {
        const int exact = m_line.findItem(m_linePage.lineChoice(), ui::ItemMatch::Exact);
        m_line.setSelectedIndex(exact >= 0 ? exact
                                           : m_line.findItem(m_linePage.lineName(), ui::ItemMatch::Prefix));
    }
    m_fixedLength.setTabStop(true);
}

void FieldPage::followFixedLength()
{
    for (ui::Control *control : std::initializer_list<ui::Control *>{&m_alignRight, &m_alignLeft,
                                                                     &m_padSpaces, &m_padZeros, &m_length})
        control->setEnabled(m_fixedLength.isTicked());
    m_entries.tellEntered();
}

void FieldPage::show(const QString &name, int nameIndex)
{
    const FieldTable &fields = model().fields;
    const int index = fields.find(configuration(), trim(name), nameIndex);
    if (index < 0)
        empty();
    else
        show(Field(fields[index]));
}

void FieldPage::show(const Field &field)
{
    m_name.setText(field.name);
    m_index.setText(QString::number(field.nameIndex));
    m_line.setText(field.lineIndex < 0 ? field.line
                                       : field.line + QStringLiteral("(%1)").arg(field.lineIndex));
    m_messageIndex.setText(QString::number(field.messageIndex));
    m_lookup.setText(field.lookup);
    m_format.setText(field.format);
    m_constant.setText(field.constant);
    m_position.setText(QString::number(field.position));
    m_fixedLength.setTicked(field.fixedLength != 0);
    m_length.setText(QString::number(field.length));
    m_characterPosition.setText(QString::number(field.characterPosition));
    if (field.fixedLength != 0)
        chooseFilling(field);
}

void FieldPage::empty()
{
    for (ui::TextBox *box : textBoxes())
        box->setText("");
    for (ui::ComboBox *box : {&m_line, &m_lookup})
        box->setText("");
    if (m_line.itemCount() > 0)
        m_line.setSelectedIndex(0);
    m_fixedLength.setTicked(true);
    m_alignRight.choose();
    m_padSpaces.choose();
    m_fixedLength.setTicked(false);
}

void FieldPage::clear()
{
    const QString line = m_line.text();
    empty();
    m_line.setText(line);
    takeOverMessageIndex();
    if (m_line.text().isEmpty())
        m_line.setSelectedIndex(m_line.findItem(m_linePage.lineName(), ui::ItemMatch::Whole));
    proposePosition();
    focusFirst();
}

void FieldPage::clearForNext()
{
    const FieldTable &fields = model().fields;
    const int index = fields.find(configuration(), trim(m_name.text()), parseIndex(m_index.text()));
    const Field stored = fields[index];
    clear();
    if (stored.fixedLength == 0)
        return;
    m_fixedLength.setTicked(true);
    chooseFilling(stored);
    m_characterPosition.setText(QString::number(nextCharacterPosition(fields, stored)));
}

/// Chooses the side and the padding of a fixed-length field.
void FieldPage::chooseFilling(const Field &field)
{
    (field.padDirection > 0 ? m_alignRight : m_alignLeft).choose();
    (field.padCharacter == " " ? m_padSpaces : m_padZeros).choose();
}

/// Writes the next free position of the chosen line into its box.
void FieldPage::proposePosition()
{
    const LineChoice line = parseLineChoice(trim(m_line.text()));
    const auto propose = [&] {
        const int lineIndex = leadingNumber(line.index.value_or(QString()));
        if (lineIndex < 0 || line.name.isEmpty())
            return false;
        const FieldTable &fields = model().fields;
        m_position.setText(QString::number(fields.nextPosition(configuration(), line.name, lineIndex)));
        return true;
    };
    guarded(propose, [](const RuntimeError &) { return false; });
}

/// Writes the message index of the chosen line into its box. A line that is not in the list is looked for
/// without its name index, too.
void FieldPage::takeOverMessageIndex()
{
    const QString line = trim(m_line.text());
    int index = m_line.findItem(line, ui::ItemMatch::Whole);
    if (index < 0 && line.endsWith(u')') && line.contains(u'('))
        index = m_line.findItem(line.left(line.indexOf(u'(')), ui::ItemMatch::Whole);
    if (index >= 0)
        m_messageIndex.setText(QString::number(m_line.itemData(index)));
}

void FieldPage::listLines()
{
    m_line.clear();
    for (const Line &line : model().lines.ofConfiguration(configuration()))
        m_line.setItemData(m_line.addItem(nameOf(line)), line.messageIndex);
}

void FieldPage::clearChoices()
{
    m_line.clear();
    m_lookup.clear();
}

std::optional<ui::MessageBox> FieldPage::listDataFields()
{
    using enum DataFieldNames::Outcome;
    const auto problem = [](const QStringList &lines) {
        return ui::MessageBox{.text = lines.join(lineBreak), .icon = ui::Icon::Critical};
    };
    const DataFieldNames found =
        loadDataFieldNames(m_document.session().configurationDatabase, configuration());
    if (found.outcome == NotConnected || found.outcome == QueryFailed) {
        return problem({"Could not load Data Fields.",
                        found.outcome == NotConnected ? "Could not open the connection to the database."
                                                      : "Could not open recordset.",
                        QStringLiteral("Return code: %1").arg(found.errorNumber)});
    }
    m_lookup.clear();
    for (const QString &name : found.names)
        m_lookup.addItem(name);
    if (found.outcome == BrokenOff)
        return problem({"An unexpected error occurred while retrieving the",
                        "Data Fields configuration.  Some or all of the",
                        "Data Fields may be missing from the list.",
                        QStringLiteral("Error code: %1").arg(found.errorNumber), found.errorDescription});
    return {};
}

std::optional<RecordReference> FieldPage::store(Edit &edit)
{
    m_index.setText(zeroIfBlank(m_index.text()));
    const Parsed<Field> parsed = parse(entered());
    if (!dataCheckPassed("There is a problem with the data for the line field entry.", parsed.problems))
        return {};
    edit.fields.store(parsed.record);
    const RecordReference record{RecordKind::Field, keyOf(parsed.record)};
    show(record.key.name, record.key.nameIndex);
    settleEntries();
    return record;
}

FieldDraft FieldPage::entered() const
{
    FieldDraft draft;
    draft.set(&Field::configuration, configuration());
    draft.set(&Field::name, m_name.text());
    draft.set(&Field::nameIndex, m_index.text());
    draft.setLine(parseLineChoice(m_line.text()));
    draft.set(&Field::messageIndex, m_messageIndex.text());
    draft.set(&Field::lookup, m_lookup.text());
    draft.set(&Field::format, m_format.text());
    draft.set(&Field::constant, m_constant.text());
    draft.set(&Field::position, m_position.text());
    draft.set(&Field::length, m_length.text());
    if (!m_fixedLength.isTicked())
        return draft;
    draft.set(&Field::fixedLength, "1");
    draft.set(&Field::characterPosition, m_characterPosition.text());
    draft.set(&Field::padCharacter, m_padSpaces.isChosen() ? " " : "0");
    draft.set(&Field::padDirection, m_alignRight.isChosen() ? "1" : "-1");
    return draft;
}

std::optional<RecordKey> FieldPage::namedLine() const
{
    const LineChoice line = parseLineChoice(trim(m_line.text()));
    if (isBlank(line.name) || (line.index && !isLong(*line.index)))
        return {};
    return RecordKey{configuration(), trim(line.name), parseIndex(line.index.value_or(QString()))};
}

Removal FieldPage::remove()
{
    if (!ui::askYesNo("Are you sure that you want to PERMANENTLY" + lineBreak +
                          "remove this field from this configuration?",
                      "Remove Field"))
        return Removal::Declined;
    bool removed = false;
    m_document.edit({}, [&](Edit &edit) {
        removed = guarded([&] { return removeField(edit); }, [](const RuntimeError &) { return false; });
        if (removed)
            settleEntries();
    });
    if (removed)
        return Removal::Done;
    ui::show({"An unexpected error occurred while removing this field." + lineBreak +
              "The data for this field may not be removed."});
    return Removal::Failed;
}

/// Removes the field that the entries name. Returns whether there was one.
bool FieldPage::removeField(Edit &edit)
{
    return varnow::removeField(edit.model(),
                               {configuration(), trim(m_name.text()), parseIndex(m_index.text())});
}

} // namespace varnow
