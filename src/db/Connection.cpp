#include "db/Connection.h"

#include "base/RuntimeError.h"
#include "db/codes.h"
#include "db/odbc.h"
#include "db/odbcConnectionString.h"

#include <QScopeGuard>

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace varnow::db {

namespace {

/// An integer travels to ODBC in the place of a pointer.
SQLPOINTER asPointer(int number)
{
    return reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(number)); // NOLINT(performance-no-int-to-ptr)
}

SQLWCHAR *utf16(const QString &text)
{
    return const_cast<SQLWCHAR *>(reinterpret_cast<const SQLWCHAR *>(text.utf16()));
}

SQLCHAR *utf8(QByteArray &text)
{
    return reinterpret_cast<SQLCHAR *>(text.data());
}

// SQLite's driver takes UTF-8 through the narrow functions. It has no wide ones, and what the driver manager
// makes of wide text for it loses letters.

SQLRETURN connect(const Handle &connection, const QString &text, Dialect dialect)
{
    switch (dialect) {
    case Dialect::SqlServer:
        return SQLDriverConnectW(connection.get(), nullptr, utf16(text), SQL_NTS, nullptr, 0, nullptr,
                                 SQL_DRIVER_NOPROMPT);
    case Dialect::Sqlite:
        QByteArray bytes = text.toUtf8();
        return SQLDriverConnect(connection.get(), nullptr, utf8(bytes), SQL_NTS, nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT);
    }
    Q_UNREACHABLE();
}

SQLRETURN run(const Handle &statement, const QString &sql, Dialect dialect)
{
    switch (dialect) {
    case Dialect::SqlServer:
        return SQLExecDirectW(statement.get(), utf16(sql), static_cast<SQLINTEGER>(sql.size()));
    case Dialect::Sqlite:
        QByteArray bytes = sql.toUtf8();
        return SQLExecDirect(statement.get(), utf8(bytes), static_cast<SQLINTEGER>(bytes.size()));
    }
    Q_UNREACHABLE();
}

/// FreeTDS where it is registered, else any other driver that is called after SQL Server.
QString sqlServerDriver()
{
    std::array<char16_t, 256> name{};
    QString found = QStringLiteral("FreeTDS");
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    while (
        SQL_SUCCEEDED(SQLDriversW(environment().get(), direction, reinterpret_cast<SQLWCHAR *>(name.data()),
                                  SQLSMALLINT(name.size()), nullptr, nullptr, 0, nullptr))) {
        direction = SQL_FETCH_NEXT;
        QString driver = QString::fromUtf16(name.data());
        if (driver == u"FreeTDS")
            return driver;
        if (driver.contains(u"SQL Server"))
            found = std::move(driver);
    }
    return found;
}

QString odbcConnectionString(const ConnectionSettings &settings, Dialect dialect, int timeout)
{
    switch (dialect) {
    case Dialect::SqlServer:
        return sqlServerConnectionString(settings, sqlServerDriver());
    case Dialect::Sqlite:
        return sqliteConnectionString(settings, timeout);
    }
    Q_UNREACHABLE();
}

/// What the driver says. Of a server that cannot encrypt it says no more than that there is no connection.
QString whyNotOpened(const Handle &connection, const ConnectionSettings &settings)
{
    const QString reason = connection.error(settings.dialect()).description();
    std::array<char16_t, 6> state{};
    SQLGetDiagFieldW(SQL_HANDLE_DBC, connection.get(), 1, SQL_DIAG_SQLSTATE, state.data(), sizeof state,
                     nullptr);
    const bool tellsNoMore = QString::fromUtf16(state.data(), 5) == u"08001";
    return tellsNoMore && requiresEncryption(settings)
               ? reason + " (The server may be unable to encrypt, which VARNOW_ENCRYPTION requires of it.)"
               : reason;
}

} // namespace

struct Connection::Handles
{
    explicit Handles(Dialect databaseDialect)
        : connection(SQL_HANDLE_DBC, environment().get()), dialect(databaseDialect)
    {
    }
    ~Handles()
    {
        statement.reset();
        SQLDisconnect(connection.get());
    }

    const Handle connection;
    std::optional<const Handle> statement; // runs all statements: one for each would take a tenth of a save
    const Dialect dialect;
};

Connection::Connection(const ConnectionSettings &settings)
{
    const QString everything = settings.server + settings.database + settings.user + settings.password;
    if (!settings.isComplete() || everything.contains(QChar(u'\0')) || !everything.isValidUtf16())
        throw RuntimeError(codes::Failure, QStringLiteral("The connection settings are incomplete"));
    const Dialect dialect = settings.dialect();
    const int timeout = std::clamp(settings.timeout, 1, connectionTimeout); // 0 would mean to wait for ever
    const QString text = odbcConnectionString(settings, dialect, timeout);

    auto handles = std::make_unique<Handles>(dialect);
    const Handle &connection = handles->connection;
    SQLSetConnectAttr(connection.get(), SQL_ATTR_LOGIN_TIMEOUT, asPointer(timeout), 0);
    if (!SQL_SUCCEEDED(connect(connection, text, dialect)))
        throw RuntimeError(codes::Failure, whyNotOpened(connection, settings));
    const Handle &statement = handles->statement.emplace(short{SQL_HANDLE_STMT}, connection.get());
    SQLSetStmtAttr(statement.get(), SQL_ATTR_QUERY_TIMEOUT, asPointer(timeout), 0);
    m_handles = std::move(handles);
}

Connection::~Connection() = default;

ResultSet Connection::execute(const QString &sql, const RowObserver &onRow)
{
    const Dialect dialect = m_handles->dialect;
    const QString text = inDialect(sql, dialect);

    const Handle &statement = *m_handles->statement;
    const auto clear = qScopeGuard([&statement] {
        SQLFreeStmt(statement.get(), SQL_CLOSE);
        SQLFreeStmt(statement.get(), SQL_UNBIND);
    });
    const SQLRETURN result = run(statement, text, dialect);
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) // which says that no row was touched
        throw statement.error(dialect);
    return fetchAll(statement, dialect, onRow);
}

bool Connection::isDead() const
{
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttr(m_handles->connection.get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
    return dead == SQL_CD_TRUE;
}

QString quoted(const QString &text)
{
    QString literal;
    appendQuoted(literal, text);
    return literal;
}

void appendQuoted(QString &sql, const QString &text)
{
    sql += u'\'';
    sql += text.contains(u'\'') ? QString(text).replace(u'\'', QLatin1String("''")) : text;
    sql += u'\'';
}

} // namespace varnow::db
