#include "model/Field.h"

namespace varnow {

namespace {

using enum ColumnUse;
using enum ColumnReading;

constexpr Column<Field> fieldColumns[] = {
    {"id", &Field::id, Identifier, Required, {1, "", "  "}},
    {"Configuration", &Field::configuration, Key, Required},
    {"Name", &Field::name, Key, Required, {1}},
    {"NameIndex", &Field::nameIndex, Key, NullIsEmpty, {1, "(", ")"}},
    {"Line", &Field::line, Key, Required, {2, "\tLine: "}},
    {"LineIndex", &Field::lineIndex, Key, NullIsEmpty, {2, "(", ")"}},
    {"MsgIndex", &Field::messageIndex, Value, Required, {3, "\tMsgIndex.Position: "}},
    {"Position", &Field::position, Value, Required, {3, "."}},
    {"Length", &Field::length, Value, NullIsEmpty, {8, "\t\tLength: "}},
    {"DataType", &Field::dataType},
    {"LookupString", &Field::lookup, Value, NullIsEmpty, {4, "\tLookup: "}},
    {"FormatString", &Field::format, Value, NullIsEmpty, {6, "\tFormat: "}},
    {"Constant", &Field::constant, Value, NullIsEmpty, {5, "\tConstant: "}},
    {"ValidationString", &Field::characterPosition, Value, NumberInText},
    {"FixedLength", &Field::fixedLength, Value, NullIsEmpty, {7, "\tFixed Length: "}},
    {"PadChar", &Field::padCharacter, Value, Untrimmed, {10, "\t\tPad Character: "}},
    {"PadDirection", &Field::padDirection, Value, NullIsEmpty, {9, "\t\tAlignment: "}},
};

} // namespace

std::span<const Column<Field>> Field::columns()
{
    return fieldColumns;
}

} // namespace varnow
