#include "support/TdsDatabase.h"

#include "support/TdsColumns.h"
#include "support/TdsProtocol.h"

#include <QRegularExpression>

#include <sqlite3.h>
#include <utility>
#include <vector>

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
    for (auto all = literal.globalMatch(batch); all.hasNext();) {
        const auto match = all.next();
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
    if (const int raised = message.toInt()) // by a trigger of guardColumns()
        return raised;
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

Database::Database(const QString &file, std::function<bool()> interrupted)
    : m_interrupted(std::move(interrupted))
{
    sqlite3_open_v2(file.toUtf8().constData(), &m_file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_db_config(m_file, SQLITE_DBCONFIG_DQS_DML, 0, nullptr); // "x" names a column, never a text
    sqlite3_exec(m_file, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    sqlite3_busy_handler(
        m_file, [](void *self, int) { return static_cast<Database *>(self)->m_interrupted() ? 0 : 1; }, this);
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
        const QByteArray one = runStatement(rest);
        if (sqlite3_errcode(m_file) == SQLITE_BUSY)
            return QByteArray();
        answer += one;
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

    if (!sqlite3_stmt_readonly(raw))
        guardColumns();
    QByteArray answer;
    int step = sqlite3_step(raw);
    const int columns = sqlite3_column_count(raw);
    std::vector<ColumnType> types;
    if (columns > 0 && (step == SQLITE_ROW || step == SQLITE_DONE)) {
        put(answer, quint8{0x81}); // column metadata
        put(answer, static_cast<quint16>(columns));
        for (int i = 0; i < columns; ++i) {
            types.push_back(columnType(raw, i));
            putColumn(answer, types.back(), QString::fromUtf8(sqlite3_column_name(raw, i)));
        }
    }
    qint64 rows = 0;
    for (; step == SQLITE_ROW; step = sqlite3_step(raw), ++rows) {
        put(answer, quint8{0xD1}); // row
        for (int i = 0; i < columns; ++i)
            putValue(answer, types[static_cast<std::size_t>(i)], raw, i);
    }
    if (step != SQLITE_DONE)
        return errorAnswer();
    return answer + doneToken(DoneMore | DoneCount, columns > 0 ? rows : sqlite3_changes(m_file));
}

QByteArray Database::errorAnswer() const
{
    const QString message = QString::fromUtf8(sqlite3_errmsg(m_file));
    return errorToken(errorNumber(sqlite3_errcode(m_file), message), message) +
           doneToken(DoneMore | DoneError);
}

/// SQLite stores a text of any length in any column; temporary triggers of this client refuse with SQL
/// Server's number what is longer than its column.
void Database::guardColumns()
{
    if (std::exchange(m_columnsGuarded, true))
        return;
    const char *triggers = R"(
        SELECT group_concat(printf('CREATE TEMP TRIGGER "%s %s %s" AFTER %s ON main."%s" WHEN length(NEW."%s") > %d
                                    BEGIN SELECT RAISE(ABORT, ''8152''); END;', t.name, c.name, e.word, e.word, t.name,
                                   c.name, substr(c.type, instr(c.type, '(') + 1)), ' ')
        FROM sqlite_master t, pragma_table_info(t.name) c, (SELECT 'INSERT' word UNION SELECT 'UPDATE') e
        WHERE t.type = 'table' AND c.type LIKE '%char(%' AND c.type NOT LIKE '%(max)')";
    sqlite3_exec(
        m_file, triggers,
        [](void *file, int, char **sql, char **) {
            return *sql ? sqlite3_exec(static_cast<sqlite3 *>(file), *sql, nullptr, nullptr, nullptr) : 0;
        },
        m_file, nullptr);
}

} // namespace varnow::test::tds
