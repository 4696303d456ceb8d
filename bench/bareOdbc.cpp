#include "bareOdbc.h"

#include "db/Connection.h"
#include "db/odbcConnectionString.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace varnow::bench {

namespace {

void require(SQLRETURN result, const char *what)
{
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
        return;
    std::fprintf(stderr, "bare ODBC: %s failed\n", what);
    std::abort();
}

SQLHENV environment()
{
    static SQLHENV handle = [] {
        SQLHENV made = nullptr;
        require(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &made), "environment");
        require(SQLSetEnvAttr(made, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0),
                "version");
        return made;
    }();
    return handle;
}

SQLCHAR *text(const std::string &value)
{
    return reinterpret_cast<SQLCHAR *>(const_cast<char *>(value.c_str()));
}

void fetchEverything(SQLHSTMT statement)
{
    SQLSMALLINT columns = 0;
    require(SQLNumResultCols(statement, &columns), "column count");
    std::array<char, 256> buffer{};
    SQLLEN length = 0;
    while (columns > 0 && SQLFetch(statement) != SQL_NO_DATA) {
        for (SQLUSMALLINT i = 1; i <= columns; ++i)
            SQLGetData(statement, i, SQL_C_CHAR, buffer.data(), buffer.size(), &length);
    }
}

} // namespace

std::string odbcConnectionString(const db::ConnectionSettings &settings)
{
    const QString text = settings.dialect() == db::Dialect::Sqlite
                             ? db::sqliteConnectionString(settings, db::connectionTimeout)
                             : db::sqlServerConnectionString(settings, QStringLiteral("FreeTDS"));
    return text.toStdString();
}

BareConnection::BareConnection(const std::string &connectionString)
{
    require(SQLAllocHandle(SQL_HANDLE_DBC, environment(), &m_handle), "allocation");
    require(SQLDriverConnect(m_handle, nullptr, text(connectionString), SQL_NTS, nullptr, 0, nullptr,
                             SQL_DRIVER_NOPROMPT),
            "connecting");
}

BareConnection::~BareConnection()
{
    SQLDisconnect(m_handle);
    SQLFreeHandle(SQL_HANDLE_DBC, m_handle);
}

void BareConnection::run(const std::string &sql)
{
    SQLHSTMT statement = nullptr;
    require(SQLAllocHandle(SQL_HANDLE_STMT, m_handle, &statement), "allocation");
    require(SQLExecDirect(statement, text(sql), SQL_NTS), sql.c_str());
    fetchEverything(statement);
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
}

void runBare(const std::string &connectionString, const std::string &statement)
{
    BareConnection(connectionString).run(statement);
}

} // namespace varnow::bench
