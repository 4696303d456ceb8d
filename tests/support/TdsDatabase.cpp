#include "support/TdsDatabase.h"

#include "support/TdsColumns.h"
#include "support/TdsProtocol.h"

#include <QRegularExpression>

#include <memory>
#include <sqlite3.h>

namespace varnow::test::tds {

namespace {

/// The same batch in SQLite's words. A backslash drops the line break behind it, as SQL Server continues a
/// literal on the next line; literals without the N prefix lose what the code page (here Latin-1) lacks.
QString translated(const QString &batch)
{
    static const QRegularExpression literal("(N?)('(?:[^']++|'')*+')");
    static const QRegularExpression continuation("\\\\\r?\n");
    static const QRegularExpression deleteWithoutFrom(R"(^\s*DELETE\s+(?!FROM\b))",
                                                      QRegularExpression::CaseInsensitiveOption);
    QString sql;
    qsizetype copied = 0;
    for (const QRegularExpressionMatch &match : literal.globalMatch(batch)) {
        sql += batch.mid(copied, match.capturedStart() - copied);
        const QString text = match.captured(2).remove(continuation);
        sql += match.captured(1).isEmpty() ? QString::fromLatin1(text.toLatin1()) : text;
        copied = match.capturedEnd();
    }
    sql += batch.mid(copied);
    return sql.replace(deleteWithoutFrom, QStringLiteral("DELETE FROM "));
}

int errorNumber(int code, const QString &message)
{
    if (code == SQLITE_CONSTRAINT)
        return 2627;
    if (message.startsWith(u"no such table"))
        return 208;
    if (message.startsWith(u"no such column") || message.contains(u"has no column named"))
        return 207;
    return code == SQLITE_ERROR ? 102 : 50000;
}

} // namespace

bool isSessionOption(const QString &batch)
{
    static const QRegularExpression option(R"(^\s*(SET|USE)\s)", QRegularExpression::CaseInsensitiveOption);
    return option.match(batch).hasMatch();
}

Database::Database(const QString &file)
{
    sqlite3_open_v2(file.toUtf8(), &m_file, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_db_config(m_file, SQLITE_DBCONFIG_DQS_DML, 0, nullptr); // "x" names a column, never a text
    sqlite3_exec(m_file, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
}

Database::~Database()
{
    sqlite3_close(m_file);
}

QByteArray Database::run(const QString &batch)
{
    if (isSessionOption(batch))
        return doneToken(DoneFinal);
    const QByteArray sql = translated(batch).toUtf8();
    QByteArray answer;
    for (const char *rest = sql.constData(); *rest;) {
        answer += runStatement(rest);
        if (sqlite3_errcode(m_file) == SQLITE_BUSY)
            return QByteArray();
    }
    return answer + doneToken(DoneFinal);
}

QByteArray Database::runStatement(const char *&sql)
{
    sqlite3_stmt *raw = nullptr;
    const char *const start = sql;
    const int prepared = sqlite3_prepare_v2(m_file, start, -1, &raw, &sql);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)> statement(raw, sqlite3_finalize);
    if (prepared != SQLITE_OK) {
        sql = ""; // the rest of the batch does not run
        return errorAnswer();
    }
    if (!raw)
        return QByteArray(); // nothing but blanks behind the last semicolon

    QByteArray answer;
    int step = sqlite3_step(raw);
    const qint64 rows =
        sqlite3_column_count(raw) > 0 ? putResult(answer, raw, step) : sqlite3_changes(m_file);
    return step == SQLITE_DONE ? answer + doneToken(DoneMore | DoneCount, rows) : errorAnswer();
}

QByteArray Database::errorAnswer() const
{
    const QString message = QString::fromUtf8(sqlite3_errmsg(m_file));
    return errorToken(errorNumber(sqlite3_errcode(m_file), message), message) +
           doneToken(DoneMore | DoneError);
}

} // namespace varnow::test::tds
