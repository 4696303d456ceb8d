#include "model/Field.h"

namespace varnow {

namespace {

using enum ColumnUse;
using enum ColumnReading;

constexpr Column<Field> fieldColumns[] = {
    {"id", "", &Field::id, Identifier, Required, {1, "", "  "}},
    {"Configuration", "Configuration", &Field::configuration, Key, Required},
    {"Name", "Name", &Field::name, Key, Required, {1}},
    {"NameIndex", "Index", &Field::nameIndex, Key, NullIsEmpty, {1, "(", ")"}},
    {"Line", "Line", &Field::line, Key, Required, {2, "\tLine: "}},
    {"LineIndex", "Line Index", &Field::lineIndex, Key, NullIsEmpty, {2, "(", ")"}},
    {"MsgIndex", "Message Index", &Field::messageIndex, Value, Required, {3, "\tMsgIndex.Position: "}},
    {"Position", "Position", &Field::position, Value, Required, {3, "."}},
    {"Length", "Length", &Field::length, Value, NullIsEmpty, {8, "\t\tLength: "}},
    {"DataType", "", &Field::dataType},
    {"LookupString", "Lookup", &Field::lookup, Value, NullIsEmpty, {4, "\tLookup: "}},
    {"FormatString", "Format", &Field::format, Value, NullIsEmpty, {6, "\tFormat: "}},
    {"Constant", "Constant", &Field::constant, Value, NullIsEmpty, {5, "\tConstant: "}},
    {"ValidationString", "Character Position", &Field::characterPosition, Value, NumberInText},
    {"FixedLength", "Fixed Length", &Field::fixedLength, Value, NullIsEmpty, {7, "\tFixed Length: "}},
    {"PadChar", "Padding", &Field::padCharacter, Value, Untrimmed, {10, "\t\tPad Character: "}},
    {"PadDirection", "Align", &Field::padDirection, Value, NullIsEmpty, {9, "\t\tAlignment: "}},
};

} // namespace

std::span<const Column<Field>> Field::columns()
{
    return fieldColumns;
}

} // namespace varnow
