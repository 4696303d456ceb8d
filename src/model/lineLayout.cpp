#include "model/lineLayout.h"

#include "model/ownership.h"

#include <algorithm>
#include <limits>

namespace varnow {

namespace {

/// Places and lengths come from the user, so sums of them may leave the range of int.
int toInt(qint64 number)
{
    return static_cast<int>(std::min<qint64>(number, std::numeric_limits<int>::max()));
}

qint64 endOf(const LayoutBar &bar)
{
    return qint64{bar.start} + bar.length;
}

} // namespace

LineLayout layoutOf(const std::vector<const Field *> &fieldsOfLine)
{
    LineLayout layout;
    for (const Field *field : fieldsOfLine) {
        if (field->fixedLength != 0)
            layout.bars.push_back({field, field->characterPosition, field->length});
    }
    std::ranges::stable_sort(layout.bars, {}, &LayoutBar::start);

    qint64 end = 1;           // of all bars so far, the first character behind them
    std::size_t furthest = 0; // the bar that ends there
    for (std::size_t i = 0; i < layout.bars.size(); ++i) {
        LayoutBar &bar = layout.bars[i];
        if (bar.length < 1)
            continue;
        if (bar.start > end)
            layout.gaps.push_back({i, static_cast<int>(end), toInt(bar.start - end)});
        if (bar.start < end && end > 1) {
            const qint64 shared = std::min(end, endOf(bar)) - bar.start;
            layout.overlaps.push_back({furthest, i, bar.start, toInt(shared)});
            bar.overlaps = layout.bars[furthest].overlaps = true;
        }
        if (endOf(bar) > end) {
            end = endOf(bar);
            furthest = i;
        }
    }
    return layout;
}

LineLayout layoutOf(const FieldTable &fields, const Line &line)
{
    std::vector<const Field *> fieldsOfLine;
    for (const Field &field : fields.ofConfiguration(line.configuration)) {
        if (belongsTo(field, line))
            fieldsOfLine.push_back(&field);
    }
    return layoutOf(fieldsOfLine);
}

int nextCharacterPosition(const FieldTable &fields, const Field &field)
{
    Line line;
    line.configuration = field.configuration;
    line.name = field.line;
    line.nameIndex = field.lineIndex;
    qint64 next = endOf({.start = field.characterPosition, .length = std::max(0, field.length)});
    for (const LayoutBar &bar : layoutOf(fields, line).bars) {
        if (bar.start <= next)
            next = std::max(next, endOf(bar));
    }
    return toInt(next);
}

QString paddingOf(const Field &field)
{
    const QString sign = field.padCharacter == " "      ? QStringLiteral("blanks")
                         : field.padCharacter == "0"    ? QStringLiteral("zeros")
                         : field.padCharacter.isEmpty() ? QStringLiteral("nothing")
                                                        : QStringLiteral("\"%1\"").arg(field.padCharacter);
    return sign + (field.padDirection > 0 ? QStringLiteral(" on the left") : QStringLiteral(" on the right"));
}

} // namespace varnow
