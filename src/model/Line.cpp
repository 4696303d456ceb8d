#include "model/Line.h"

namespace varnow {

namespace {

using enum ColumnUse;

constexpr Column<Line> lineColumns[] = {
    {"id", "", &Line::id, Identifier, {}, {1, "", "  "}},
    {"Configuration", "Configuration", &Line::configuration, Key},
    {"Name", "Name", &Line::name, Key, {}, {1}},
    {"NameIndex", "Index", &Line::nameIndex, Key, {}, {1, "(", ")"}},
    {"MsgIndex", "Message Index", &Line::messageIndex, Value, {}, {2, "\tMsgIndex: "}},
    {"number1", "", &Line::number1, Spare},
    {"string1", "", &Line::string1, Spare},
    {"text1", "", &Line::text1, Spare},
    {"date1", "", &Line::date1, Spare},
};

} // namespace

std::span<const Column<Line>> Line::columns()
{
    return lineColumns;
}

} // namespace varnow
