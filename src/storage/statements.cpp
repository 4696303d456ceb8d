#include "storage/statements.h"

#include "base/RuntimeError.h"

#include <array>
#include <charconv>

namespace varnow {

namespace {

void require(const QVariant &cell, ColumnReading reading)
{
    if (reading == ColumnReading::Required && cell.isNull())
        throw RuntimeError(errors::InvalidUseOfNull);
}

} // namespace

void appendLiteral(QString &sql, int number, ColumnReading reading)
{
    std::array<char, 11> digits{};
    const char *end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const QLatin1String apostrophe(reading == ColumnReading::NumberInText ? "'" : "");
    sql += apostrophe;
    sql += QLatin1String(digits.data(), end);
    sql += apostrophe;
}

void appendLiteral(QString &sql, const QString &text, ColumnReading)
{
    db::appendQuoted(sql, text);
}

void appendLiteral(QString &sql, const QDateTime &time, ColumnReading)
{
    db::appendQuoted(sql, toText(time));
}

void readCell(const QVariant &cell, ColumnReading reading, int &number)
{
    require(cell, reading);
    if (cell.isNull()) {
        number = 0;
    } else if (reading == ColumnReading::NumberInText) {
        const QString text = cell.toString();
        number = isBlank(text) ? 0 : toLong(text);
    } else {
        number = toLong(cell);
    }
}

void readCell(const QVariant &cell, ColumnReading reading, QString &text)
{
    require(cell, reading);
    text = reading == ColumnReading::Untrimmed ? cell.toString() : trim(cell.toString());
}

/// SQLite keeps dates as ISO text. Any other value gives the start of 1900.
void readCell(const QVariant &cell, ColumnReading reading, QDateTime &time)
{
    require(cell, reading);
    if (cell.typeId() == QMetaType::QDateTime) {
        time = cell.toDateTime();
        return;
    }
    static const QDateTime noDate = utcDateTime(QDate(1900, 1, 1));
    const QString text = trim(cell.toString());
    const QDate date = QDate::fromString(text.left(10), Qt::ISODate);
    const QTime hour = text.size() > 10 ? QTime::fromString(text.mid(11), Qt::ISODateWithMs) : QTime(0, 0);
    time = date.isValid() && hour.isValid() ? utcDateTime(date, hour) : noDate;
}

} // namespace varnow
