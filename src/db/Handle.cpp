#include "db/odbc.h"

#include "db/errorCodes.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace varnow::db {

Handle::Handle(short type, void *parent) : m_type(type)
{
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &m_handle)))
        throw RuntimeError(codes::Failure, QStringLiteral("The database client is out of resources"));
}

Handle::~Handle()
{
    SQLFreeHandle(m_type, m_handle);
}

const Handle &environment()
{
    // Never freed: a connection that nobody waits for any more may outlive the end of main().
    static const Handle &handle = *new Handle(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
    constexpr std::uintptr_t number = SQL_OV_ODBC3;
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    static const auto version = reinterpret_cast<SQLPOINTER>(number);
    static const SQLRETURN set = SQLSetEnvAttr(handle.get(), SQL_ATTR_ODBC_VERSION, version, 0);
    Q_UNUSED(set)
    return handle;
}

RuntimeError Handle::error(Dialect dialect) const
{
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 1024> message{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    std::optional<RuntimeError> first;
    // Notes may stand before the record that tells the reason ("the statement has been terminated").
    for (SQLSMALLINT i = 1;
         SQL_SUCCEEDED(SQLGetDiagRecW(m_type, m_handle, i, state.data(), &number, message.data(),
                                      static_cast<SQLSMALLINT>(message.size()), &length));
         ++i) {
        const auto shown = std::min<std::size_t>(static_cast<std::size_t>(length), message.size() - 1);
        const QString text =
            QString::fromUtf16(reinterpret_cast<char16_t *>(message.data()), static_cast<qsizetype>(shown));
        const QString sqlState = QString::fromUtf16(reinterpret_cast<char16_t *>(state.data()), 5);
        RuntimeError found(errorCode(dialect, sqlState, number, text), text);
        if (found.number() != codes::Failure)
            return found;
        if (!first)
            first = std::move(found);
    }
    return first.value_or(RuntimeError(codes::Failure));
}

} // namespace varnow::db
