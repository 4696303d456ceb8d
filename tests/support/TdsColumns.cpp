#include "support/TdsColumns.h"

#include "support/TdsProtocol.h"

#include <QDateTime>
#include <QHash>
#include <QRegularExpression>

#include <bit>
#include <cmath>
#include <limits>
#include <sqlite3.h>
#include <vector>

namespace varnow::test::tds {

namespace {

/// A column's type as the wire knows it.
struct ColumnType
{
    enum class Kind : quint8 { // the type bytes of the protocol, all of the forms that can be Null
        Integer = 0x26,
        Float = 0x6D,
        Decimal = 0x6C,
        DateTime = 0x6F,
        Text = 0x23,
        NText = 0x63,
        VarChar = 0xA7,
        Char = 0xAF,
        NVarChar = 0xE7
    };

    Kind kind = Kind::Integer;
    int size = 4; ///< in bytes
    int precision = 0;
    int scale = 0;
};

using Kind = ColumnType::Kind;

bool isLong(const ColumnType &type)
{
    return type.kind == Kind::Text || type.kind == Kind::NText;
}

bool hasText(const ColumnType &type)
{
    return isLong(type) || type.kind >= Kind::VarChar;
}

/// The type of a column as its table declares it, else a whole number.
ColumnType typeOf(const QString &declared)
{
    static const QHash<QString, ColumnType> plain = {
        {"int", {Kind::Integer, 4}},    {"bigint", {Kind::Integer, 8}},  {"smallint", {Kind::Integer, 2}},
        {"real", {Kind::Float, 4}},     {"tinyint", {Kind::Integer, 1}}, {"datetime", {Kind::DateTime, 8}},
        {"float", {Kind::Float, 8}},    {"decimal", {Kind::Decimal, 9}}, {"varchar", {Kind::VarChar, 1}},
        {"text", {Kind::Text, 65535}},  {"char", {Kind::Char, 1}},       {"nvarchar", {Kind::NVarChar, 2}},
        {"ntext", {Kind::NText, 65535}}};
    static const QRegularExpression form(R"((\w+)\s*(?:\(\s*(\d+)\s*(?:,\s*(\d+)\s*)?\))?)");

    const auto match = form.match(declared);
    ColumnType type = plain.value(match.captured(1));
    if (type.kind == Kind::Decimal) {
        type.precision = match.captured(2).toInt();
        type.scale = match.captured(3).toInt();
    } else if (type.kind >= Kind::VarChar) {
        type.size *= match.captured(2).toInt();
    }
    return type;
}

void putColumn(QByteArray &out, const ColumnType &type, const QString &name)
{
    put(out, quint32{0}); // user type
    put(out, quint16{9}); // can be Null, can be updated
    put(out, static_cast<quint8>(type.kind));
    if (isLong(type))
        put(out, quint32{std::numeric_limits<qint32>::max()});
    else if (hasText(type))
        put(out, static_cast<quint16>(type.size));
    else
        put(out, static_cast<quint8>(type.size));
    if (type.kind == Kind::Decimal)
        out.append(static_cast<char>(type.precision)).append(static_cast<char>(type.scale));
    if (hasText(type))
        out.append("\x09\x04\xD0\x00\x34", 5); // collation: US English, code page 1252
    if (isLong(type)) {
        put(out, quint8{1}); // a table name of one part
        putText<quint16>(out, QStringLiteral("t"));
    }
    putText<quint8>(out, name);
}

QByteArray bytesOf(const ColumnType &type, sqlite3_stmt *row, int column)
{
    const auto text = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(row, column)),
                                        sqlite3_column_bytes(row, column));
    const double number = sqlite3_column_double(row, column);
    QByteArray bytes;
    switch (type.kind) {
    case Kind::Integer:
        put(bytes, static_cast<qint64>(sqlite3_column_int64(row, column)));
        return bytes.left(type.size);
    case Kind::Float:
        type.size == 4 ? put(bytes, std::bit_cast<quint32>(static_cast<float>(number)))
                       : put(bytes, std::bit_cast<quint64>(number));
        return bytes;
    case Kind::Decimal:
        put(bytes, static_cast<quint8>(number < 0 ? 0 : 1));
        put(bytes, static_cast<quint64>(std::llround(std::fabs(number) * std::pow(10, type.scale))));
        return bytes;
    case Kind::DateTime: { // days since 1900 and ticks of 1/300 second since midnight
        const auto value = QDateTime::fromString(QString(text).replace(u' ', u'T'), Qt::ISODateWithMs);
        put(bytes, static_cast<qint32>(QDate(1900, 1, 1).daysTo(value.date())));
        put(bytes, static_cast<quint32>(std::lround(value.time().msecsSinceStartOfDay() * 0.3)));
        return bytes;
    }
    case Kind::NText:
    case Kind::NVarChar:
        return QByteArray(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
    case Kind::Char:
        return text.toLatin1().leftJustified(type.size);
    default:
        return text.toLatin1();
    }
}

void putValue(QByteArray &out, const ColumnType &type, sqlite3_stmt *row, int column)
{
    const bool isNull = sqlite3_column_type(row, column) == SQLITE_NULL;
    const QByteArray bytes = isNull ? QByteArray() : bytesOf(type, row, column);
    if (isLong(type)) {
        put(out, static_cast<quint8>(isNull ? 0 : 16));
        if (isNull)
            return;
        out.append(16 + 8, '\x01'); // text pointer and time stamp, which no client looks into
        put(out, static_cast<quint32>(bytes.size()));
    } else if (hasText(type)) {
        put(out, static_cast<quint16>(isNull ? 0xFFFF : bytes.size()));
    } else {
        put(out, static_cast<quint8>(bytes.size()));
    }
    out += bytes;
}

} // namespace

qint64 putResult(QByteArray &out, sqlite3_stmt *result, int &step)
{
    std::vector<ColumnType> types;
    const int count = sqlite3_column_count(result);
    put(out, quint8{0x81});
    put(out, static_cast<quint16>(count));
    for (int i = 0; i < count; ++i) {
        types.push_back(typeOf(QString::fromUtf8(sqlite3_column_decltype(result, i)).toLower()));
        putColumn(out, types.back(), QString::fromUtf8(sqlite3_column_name(result, i)));
    }
    qint64 rows = 0;
    for (; step == SQLITE_ROW; step = sqlite3_step(result), ++rows) {
        put(out, quint8{0xD1});
        int column = 0;
        for (const ColumnType &type : types)
            putValue(out, type, result, column++);
    }
    return rows;
}

} // namespace varnow::test::tds
