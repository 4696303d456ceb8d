#include "support/TdsDatabase.h"

#include "support/TdsColumns.h"
#include "support/TdsProtocol.h"

#include <QMap>
#include <QRegularExpression>

#include <sqlite3.h>
#include <utility>
#include <vector>

namespace varnow::test::tds {

namespace {

struct FinalizeStatement
{
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// The same batch in SQLite's words. A backslash drops the line break behind it, as SQL Server continues a
/// literal on the next line; literals without the N prefix lose what the code page lacks.
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
        sql += match.captured(1).isEmpty() ? throughCodePage(text) : text;
        copied = match.capturedEnd();
    }
    sql += batch.mid(copied);
    return sql.replace(deleteWithoutFrom, QStringLiteral("DELETE FROM "));
}

int errorNumber(int code, const QString &message)
{
    switch (code) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
        return 2627;
    case SQLITE_CONSTRAINT_NOTNULL:
        return 515;
    case SQLITE_CONSTRAINT_CHECK:
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return 547;
    case SQLITE_CONSTRAINT_TRIGGER: // the triggers of guardColumns() speak in numbers
        return message.toInt() ? message.toInt() : 50000;
    case SQLITE_READONLY:
        return 3906;
    case SQLITE_MISMATCH:
        return 245;
    default:
        break;
    }
    if (message.startsWith(u"no such table"))
        return 208;
    if (message.startsWith(u"no such column") || message.contains(u"has no column named"))
        return 207;
    return code == SQLITE_ERROR ? 102 : 50000;
}

/// A trigger's condition and the error that SQL Server raises for a value which SQLite would store.
QString refusal(const QString &column, const QString &declaration)
{
    const ColumnType type = columnType(declaration);
    if (type.kind == ColumnType::Kind::Integer)
        return QStringLiteral("SELECT RAISE(ABORT, '245') WHERE typeof(NEW.%1) NOT IN ('integer', 'null');")
            .arg(column);
    if (type.kind < ColumnType::Kind::VarChar || type.size == ColumnType::unlimited)
        return QString();
    static const QRegularExpression length("\\d+");
    return QStringLiteral("SELECT RAISE(ABORT, '8152') WHERE length(NEW.%1) > %2;")
        .arg(column, length.match(declaration).captured());
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
    const Statement statement(raw);
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
            const bool named = sqlite3_column_decltype(raw, i) != nullptr;
            putColumn(answer, types.back(),
                      named ? QString::fromUtf8(sqlite3_column_name(raw, i)) : QString());
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
    return errorToken(errorNumber(sqlite3_extended_errcode(m_file), message), message) +
           doneToken(DoneMore | DoneError);
}

/// SQLite stores any value in any column; temporary triggers of this client refuse what SQL Server refuses.
void Database::guardColumns()
{
    if (std::exchange(m_columnsGuarded, true))
        return;
    sqlite3_stmt *raw = nullptr;
    sqlite3_prepare_v2(m_file,
                       "SELECT t.name, c.name, c.type FROM sqlite_master t, pragma_table_info(t.name) c "
                       "WHERE t.type = 'table' AND t.name NOT LIKE 'sqlite_%'",
                       -1, &raw, nullptr);
    const Statement columns(raw);
    const auto text = [raw](int i) {
        return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(raw, i)));
    };
    QMap<QString, QString> refusals;
    while (sqlite3_step(raw) == SQLITE_ROW)
        refusals[text(0)] += refusal(text(1), text(2));
    for (auto it = refusals.cbegin(); it != refusals.cend(); ++it)
        for (const char *event : {"INSERT", "UPDATE"})
            if (!it.value().isEmpty())
                sqlite3_exec(
                    m_file,
                    QStringLiteral("CREATE TEMP TRIGGER \"%1 %2\" AFTER %2 ON main.\"%1\" BEGIN %3 END")
                        .arg(it.key(), QLatin1String(event), it.value())
                        .toUtf8()
                        .constData(),
                    nullptr, nullptr, nullptr);
}

} // namespace varnow::test::tds
