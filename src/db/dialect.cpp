#include "db/dialect.h"

#include "base/RuntimeError.h"
#include "db/codes.h"

#include <QRegularExpression>

#include <algorithm>

namespace varnow::db {

namespace {

/// SQL Server lets FROM out, SQLite does not.
QString withFrom(QString sql)
{
    if (!QStringView(sql).trimmed().startsWith(u"DELETE", Qt::CaseInsensitive))
        return sql;
    static const QRegularExpression start(QStringLiteral("^(\\s*DELETE\\s+)(?!FROM\\b)"),
                                          QRegularExpression::CaseInsensitiveOption);
    return sql.replace(start, QStringLiteral("\\1FROM "));
}

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

/// Position of the apostrophe that ends the literal whose first one stands at `start`; a doubled one belongs
/// to the text.
qsizetype literalEnd(const QString &sql, qsizetype start)
{
    qsizetype end = sql.indexOf(u'\'', start + 1);
    while (end >= 0 && end + 1 < sql.size() && sql[end + 1] == u'\'')
        end = sql.indexOf(u'\'', end + 2);
    return end < 0 ? sql.size() - 1 : end;
}

/// A literal that SQL Server takes letter by letter. Without the prefix it turns letters outside its code
/// page into question marks, and it drops every backslash together with the line break behind it, so that
/// both are written twice to arrive once.
QString sqlServerLiteral(QString literal)
{
    static const QRegularExpression continuation(QStringLiteral("\\\\(\r?\n)"));
    if (!isAscii(literal))
        literal.prepend(u'N');
    return literal.replace(continuation, QStringLiteral("\\\\\\1\\1"));
}

QString withSqlServerLiterals(const QString &sql)
{
    QString result;
    qsizetype copied = 0;
    for (qsizetype start = sql.indexOf(u'\''); start >= 0; start = sql.indexOf(u'\'', copied)) {
        const qsizetype end = literalEnd(sql, start) + 1;
        result += QStringView(sql).sliced(copied, start - copied);
        result += sqlServerLiteral(sql.sliced(start, end - start));
        copied = end;
    }
    result += QStringView(sql).sliced(copied);
    return result;
}

} // namespace

QString inDialect(const QString &sql, Dialect dialect)
{
    if (sql.contains(QChar(u'\0')) || !sql.isValidUtf16())
        throw RuntimeError(codes::Conversion,
                           QStringLiteral("The statement holds a character that cannot be sent"));
    switch (dialect) {
    case Dialect::SqlServer:
        return withSqlServerLiterals(sql);
    case Dialect::Sqlite:
        return withFrom(sql);
    }
    Q_UNREACHABLE();
}

} // namespace varnow::db
