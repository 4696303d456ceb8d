#include "model/search.h"

#include "model/TreeOrder.h"

#include <QStringMatcher>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace varnow {

namespace {

/// Tells whether texts and numbers hold what is looked for.
class Needle
{
public:
    explicit Needle(const QString &text) : m_matcher(text, Qt::CaseInsensitive), m_latin1(text.toLatin1())
    {
        const auto mayBeNumber = [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'-' || c == u'.'; };
        m_isNumber = std::all_of(text.begin(), text.end(), mayBeNumber);
        m_holdsParenthesis = text.contains(u'(') || text.contains(u')');
    }

    bool isInText(const QString &text) const { return !text.isEmpty() && m_matcher.indexIn(text) >= 0; }

    /// A name and its index, as the tree shows them.
    bool isInName(const QString &name, int nameIndex) const
    {
        return isInText(name) ||
               (m_holdsParenthesis ? isInText(nameOf(name, nameIndex)) : isInNumbers({nameIndex}));
    }

    /// Numbers with a point between them. Without a text for each, for most are not what is looked for.
    bool isInNumbers(std::initializer_list<int> numbers) const
    {
        if (!m_isNumber)
            return false;
        std::array<char, 32> digits; // NOLINT(cppcoreguidelines-pro-type-member-init)
        char *end = digits.data();
        for (const int number : numbers) {
            if (end != digits.data())
                *end++ = '.';
            end = std::to_chars(end, digits.data() + digits.size(), number).ptr;
        }
        const std::string_view shown(digits.data(), static_cast<std::size_t>(end - digits.data()));
        return shown.find(m_latin1.constData()) != std::string_view::npos;
    }

private:
    QStringMatcher m_matcher;
    QByteArray m_latin1;
    bool m_isNumber;
    bool m_holdsParenthesis;
};

struct Match
{
    TreePlace place;
    RecordReference record;
};

/// The texts of a field, beside its key and its line, that users see: Lookup, Format and the like.
std::vector<QString Field::*> searchedTexts()
{
    std::vector<QString Field::*> texts;
    for (const Column<Field> &column : Field::columns()) {
        const auto *text = std::get_if<QString Field::*>(&column.member);
        if (text != nullptr && column.use == ColumnUse::Value && *column.caption != '\0' &&
            column.reading != ColumnReading::Untrimmed)
            texts.push_back(*text);
    }
    return texts;
}

} // namespace

std::vector<RecordReference> search(const Model &model, const QString &configuration, const QString &text)
{
    if (text.isEmpty())
        return {};
    const Needle needle(text);
    std::vector<const Line *> lines;
    for (const Line &line : model.lines.ofConfiguration(configuration))
        lines.push_back(&line);
    const TreeOrder order(lines);
    std::vector<Match> matches;
    for (const Line *line : lines) {
        if (needle.isInName(line->name, line->nameIndex) || needle.isInNumbers({line->messageIndex}))
            matches.push_back({order.placeOf(*line), {RecordKind::Line, keyOf(*line)}});
    }
    const std::vector<QString Field::*> texts = searchedTexts();
    for (int sequence = 0; const Field &field : model.fields.ofConfiguration(configuration)) {
        if (needle.isInName(field.name, field.nameIndex) || needle.isInName(field.line, field.lineIndex) ||
            needle.isInNumbers({field.messageIndex, field.position}) ||
            std::ranges::any_of(texts, [&](auto member) { return needle.isInText(field.*member); }))
            matches.push_back({order.placeOf(field, sequence), {RecordKind::Field, keyOf(field)}});
        ++sequence;
    }
    if (!std::ranges::is_sorted(matches, {}, &Match::place))
        std::ranges::stable_sort(matches, {}, &Match::place);
    std::vector<RecordReference> records;
    records.reserve(matches.size());
    for (Match &match : matches)
        records.push_back(std::move(match.record));
    return records;
}

} // namespace varnow
