#include "editor/LinePage.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "base/text.h"
#include "editor/DataCheck.h"
#include "model/RecordReference.h"
#include "model/drafts.h"
#include "model/removal.h"

#include <algorithm>
#include <array>

namespace varnow {

LinePage::LinePage(ui::TabControl &tabs, Document &document)
    : EntryPage(tabs, "&Lines", RecordKind::Line, document)
{
    for (TextBox *box : {&m_name, &m_index, &m_messageIndex})
        m_entries.add(*box);
    m_name.setToolTip("The name of the line; it must not be blank.");
    m_index.setToolTip(
        "A number that tells this line from others of the same name; left blank, it becomes 0.");
    m_messageIndex.setToolTip("The number of the line's place in the message; it must not be blank.");
}

void LinePage::layOut()
{
    const std::array<TextBox *, 3> boxes{&m_name, &m_index, &m_messageIndex};
    const auto pairWidth = [](const TextBox *box) { return box->label.width() + labelGap + box->width(); };
    float pairs = 0;
    float row = 0;
    for (const TextBox *box : boxes) {
        pairs += pairWidth(box);
        row = std::max({row, box->height(), box->label.height()});
    }
    const float gap = (m_tabs.width() - pairs) / 4;
    const float strip = m_tabs.tabHeight();
    const float centre = (m_tabs.height() - (strip + row)) / 2 + strip + row / 2;
    float left = gap;
    for (TextBox *box : boxes) {
        place(*box, left, left + box->label.width() + labelGap, centre);
        left += pairWidth(box) + gap;
    }
}

std::optional<ui::MessageBox> LinePage::showFirst()
{
    using Problem = std::optional<ui::MessageBox>;
    const auto display = [this]() -> Problem {
        const LineTable &lines = model().lines;
        const auto first = std::ranges::find(lines, configuration(), &Line::configuration);
        if (first == lines.end())
            return ui::MessageBox{"There is no line configuration" + lineBreak + "data to display."};
        show(*first);
        return {};
    };
    return guarded(display, [](const RuntimeError &error) -> Problem {
        return ui::MessageBox{QStringList{
            "An unexpected error occurred while displaying", "the current line configuration data.",
            QStringLiteral("Error: %1").arg(error.number()), error.description()}
                                  .join(lineBreak)};
    });
}

void LinePage::show(const QString &name, int nameIndex)
{
    const LineTable &lines = model().lines;
    const int index = lines.findNamed(configuration(), trim(name), nameIndex);
    if (index < 0)
        empty();
    else
        show(Line(lines[index]));
}

void LinePage::show(const Line &line)
{
    m_name.setText(line.name);
    m_index.setText(QString::number(line.nameIndex));
    m_messageIndex.setText(QString::number(line.messageIndex));
}

void LinePage::empty()
{
    for (TextBox *box : {&m_name, &m_index, &m_messageIndex})
        box->setText("");
}

void LinePage::clear()
{
    empty();
    m_messageIndex.setText(QString::number(model().lines.nextMessageIndex(configuration())));
    focusFirst();
}

std::optional<RecordReference> LinePage::store(Edit &edit)
{
    m_index.setText(zeroIfBlank(m_index.text()));
    LineDraft draft;
    draft.set(&Line::configuration, configuration());
    draft.set(&Line::name, m_name.text());
    draft.set(&Line::nameIndex, m_index.text());
    draft.set(&Line::messageIndex, m_messageIndex.text());
    const Parsed<Line> parsed = parse(draft);
    if (!dataCheckPassed("There is a problem with the data for the line entry.", parsed.problems))
        return {};
    edit.lines.store(parsed.record);
    const RecordReference record{RecordKind::Line, keyOf(parsed.record)};
    show(record.key.name, record.key.nameIndex);
    settleEntries();
    return record;
}

QString LinePage::lineChoice() const
{
    const std::optional<RecordKey> line = namedLine();
    return line ? nameOf(line->name, line->nameIndex) : QString();
}

std::optional<RecordKey> LinePage::namedLine() const
{
    const std::optional<RecordReference> record = namedRecord();
    return record ? std::optional(record->key) : std::nullopt;
}

Removal LinePage::remove()
{
    if (!ui::askYesNo("Are you sure that you want to PERMANENTLY" + lineBreak +
                          "remove this line from this configuration?",
                      "Remove Line"))
        return Removal::Declined;
    bool removed = false;
    m_document.edit({}, [&](Edit &edit) {
        removed = removeLine(edit);
        if (removed)
            settleEntries();
    });
    return removed ? Removal::Done : Removal::Failed;
}

/// Removes the line, renumbers the rest and lets the fields follow. Returns whether every step went well; the
/// first that did not was shown.
bool LinePage::removeLine(Edit &edit)
{
    const auto key = [this] {
        return RecordKey{configuration(), trim(m_name.text()), parseIndex(m_index.text())};
    };
    const auto remove = [&] { return varnow::removeLine(edit.model(), key()); };
    const auto refuse = [](const QStringList &lines, ui::Icon icon = ui::Icon::None) {
        ui::show({.text = lines.join(lineBreak), .icon = icon});
        return false;
    };
    switch (guarded(remove, [](const RuntimeError &) { return LineRemoval::NotFound; })) {
    case LineRemoval::Done:
        return true;
    case LineRemoval::HasFields:
        return refuse({"Can not remove line.", "There are existing fields for this line.",
                       "If you want to remove this line, first", "remove any existing fields and then",
                       "remove the line."},
                      ui::Icon::Information);
    case LineRemoval::NotFound:
        return refuse({"An unexpected error occurred while removing this line.",
                       "The data for this line may not be removed."});
    case LineRemoval::RenumberingFailed:
        return refuse({"The Message Index values were changed", "due to the removal of the line.  An",
                       "unexpected error occurred the prevented", "the updating of some or all of the",
                       "remaining line configurations."});
    case LineRemoval::CopyingMessageIndexesFailed:
        return refuse({"The Message Index values were changed", "due to the removal of the line.  An",
                       "unexpected error occurred the prevented", "the re-syncronization of the Line Fields",
                       "Message Indices with those for the Lines."});
    }
    Q_UNREACHABLE();
}

} // namespace varnow
