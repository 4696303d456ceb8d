#include "support/TdsColumns.h"

#include "support/TdsProtocol.h"

#include <QDateTime>
#include <QHash>
#include <QRegularExpression>

#include <cmath>
#include <limits>
#include <sqlite3.h>

namespace varnow::test::tds {

namespace {

using Kind = ColumnType::Kind;

QString textOf(sqlite3_stmt *row, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(row, column)),
                             sqlite3_column_bytes(row, column));
}

void putTextValue(QByteArray &out, const ColumnType &type, const QString &text)
{
    QByteArray bytes = type.kind == Kind::NVarChar
                           ? QByteArray(reinterpret_cast<const char *>(text.utf16()), 2 * text.size())
                           : text.toLatin1();
    if (type.kind == Kind::Char)
        bytes = bytes.leftJustified(type.size);
    if (type.kind == Kind::Text) {
        put(out, quint8{16});
        out.append(16 + 8, '\x01'); // text pointer and time stamp, which no client looks into
        put(out, static_cast<quint32>(bytes.size()));
        out += bytes;
    } else if (type.size == ColumnType::unlimited) {
        put(out, static_cast<quint64>(bytes.size()));
        if (!bytes.isEmpty()) { // one chunk; a chunk of size 0 ends the value
            put(out, static_cast<quint32>(bytes.size()));
            out += bytes;
        }
        put(out, quint32{0});
    } else {
        put(out, static_cast<quint16>(bytes.size()));
        out += bytes;
    }
}

/// Days since 1900 and ticks of 1/300 second since midnight.
void putDateTime(QByteArray &out, const QString &text)
{
    const QDateTime value = QDateTime::fromString(QString(text).replace(u' ', u'T'), Qt::ISODateWithMs);
    put(out, static_cast<qint32>(QDate(1900, 1, 1).daysTo(value.date())));
    put(out, static_cast<quint32>(std::lround(value.time().msecsSinceStartOfDay() * 0.3)));
}

void putDecimal(QByteArray &out, const ColumnType &type, double value)
{
    put(out, static_cast<quint8>(value < 0 ? 0 : 1));
    put(out, static_cast<quint64>(std::llround(std::fabs(value) * std::pow(10, type.scale))));
    out.append(type.size - 9, '\0');
}

void putNull(QByteArray &out, const ColumnType &type)
{
    if (type.size == ColumnType::unlimited)
        put(out, std::numeric_limits<quint64>::max());
    else if (type.kind >= Kind::VarChar)
        put(out, std::numeric_limits<quint16>::max());
    else
        put(out, quint8{0});
}

} // namespace

ColumnType columnType(sqlite3_stmt *row, int column)
{
    static const QHash<QString, ColumnType> plain = {
        {"int", {Kind::Integer, 4}},      {"bigint", {Kind::Integer, 8}},
        {"smallint", {Kind::Integer, 2}}, {"tinyint", {Kind::Integer, 1}},
        {"char", {Kind::Char}},           {"real", {Kind::Float, 4}},
        {"float", {Kind::Float, 8}},      {"datetime", {Kind::DateTime, 8}},
        {"text", {Kind::Text}},           {"decimal", {Kind::Decimal, 17}},
        {"varchar", {Kind::VarChar}},     {"nvarchar", {Kind::NVarChar}},
    };
    static const QRegularExpression form(R"((\w+)\s*(?:\(\s*(\w+)\s*(?:,\s*(\d+)\s*)?\))?)");

    const auto match = form.match(QString::fromUtf8(sqlite3_column_decltype(row, column)).toLower());
    ColumnType type = plain.value(match.captured(1));
    const QString length = match.captured(2);
    if (type.kind == Kind::Decimal) {
        type.precision = length.toInt();
        type.scale = match.captured(3).toInt();
    } else if (type.kind >= Kind::VarChar) {
        type.size = length == u"max" ? ColumnType::unlimited
                                     : qMax(1, length.toInt()) * (type.kind == Kind::NVarChar ? 2 : 1);
    }
    return type;
}

void putColumn(QByteArray &out, const ColumnType &type, const QString &name)
{
    put(out, quint32{0}); // user type
    put(out, quint16{9}); // can be Null, can be updated
    put(out, static_cast<quint8>(type.kind));
    if (type.kind == Kind::Text)
        put(out, quint32{std::numeric_limits<qint32>::max()});
    else if (type.kind >= Kind::VarChar)
        put(out, static_cast<quint16>(type.size));
    else
        put(out, static_cast<quint8>(type.size));
    if (type.kind == Kind::Decimal) {
        put(out, static_cast<quint8>(type.precision));
        put(out, static_cast<quint8>(type.scale));
    }
    if (type.kind == Kind::Text || type.kind >= Kind::VarChar)
        out.append("\x09\x04\xD0\x00\x34", 5); // collation: US English, code page 1252
    if (type.kind == Kind::Text) {
        put(out, quint8{1}); // a table name of one part
        putText<quint16>(out, QStringLiteral("t"));
    }
    putText<quint8>(out, name);
}

void putValue(QByteArray &out, const ColumnType &type, sqlite3_stmt *row, int column)
{
    if (sqlite3_column_type(row, column) == SQLITE_NULL)
        return putNull(out, type);
    switch (type.kind) {
    case Kind::Integer: {
        put(out, static_cast<quint8>(type.size));
        QByteArray number;
        put(number, static_cast<qint64>(sqlite3_column_int64(row, column)));
        out += number.left(type.size);
        break;
    }
    case Kind::Float: {
        put(out, static_cast<quint8>(type.size));
        const double wide = sqlite3_column_double(row, column);
        const auto narrow = static_cast<float>(wide);
        out.append(type.size == 4 ? reinterpret_cast<const char *>(&narrow)
                                  : reinterpret_cast<const char *>(&wide),
                   type.size);
        break;
    }
    case Kind::Decimal:
        put(out, static_cast<quint8>(type.size));
        putDecimal(out, type, sqlite3_column_double(row, column));
        break;
    case Kind::DateTime:
        put(out, static_cast<quint8>(type.size));
        putDateTime(out, textOf(row, column));
        break;
    default:
        putTextValue(out, type, textOf(row, column));
    }
}

} // namespace varnow::test::tds
