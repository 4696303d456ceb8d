#pragma once

#include "model/FieldTable.h"
#include "model/Line.h"

#include <QString>

#include <vector>

namespace varnow {

/// A fixed-length field as a stretch of characters of its line.
struct LayoutBar
{
    const Field *field = nullptr;
    int start = 0;         ///< character position of its first character, counted from 1
    int length = 0;        ///< characters; below 1 for a field without a length
    bool overlaps = false; ///< shares characters with another field
};

/// The characters that a bar shares with an earlier one, the one that reaches furthest.
struct LayoutOverlap
{
    std::size_t first = 0; ///< indexes of the two bars
    std::size_t second = 0;
    int start = 0;
    int length = 0;
};

/// Characters between the fields that none of them fills.
struct LayoutGap
{
    std::size_t before = 0; ///< index of the bar behind it
    int start = 0;
    int length = 0;
};

/// How the fixed-length fields of a line share its characters. It points to the fields, so it lasts until
/// they change.
struct LineLayout
{
    std::vector<LayoutBar> bars; ///< by start
    std::vector<LayoutOverlap> overlaps;
    std::vector<LayoutGap> gaps;
};

/// The layout of one line's fields, of which those that are not fixed-length are left out.
LineLayout layoutOf(const std::vector<const Field *> &fieldsOfLine);

/// The layout of a line.
LineLayout layoutOf(const FieldTable &fields, const Line &line);

/// The first character behind a fixed-length field that no field of its line fills.
int nextCharacterPosition(const FieldTable &fields, const Field &field);

/// How a fixed-length field is filled up, in words: "blanks on the left", "zeros on the right". One that is
/// aligned right is filled up on the left.
QString paddingOf(const Field &field);

} // namespace varnow
