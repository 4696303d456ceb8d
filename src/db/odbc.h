#pragma once

#include "base/RuntimeError.h"
#include "db/ResultSet.h"
#include "db/dialect.h"

// What Connection.cpp builds on. ODBC's own headers stay in the source files: a handle is a void pointer
// there.

namespace varnow::db {

/// An ODBC handle that is freed with this object.
class Handle
{
public:
    /// `type` is SQL_HANDLE_ENV, SQL_HANDLE_DBC or SQL_HANDLE_STMT.
    Handle(short type, void *parent);
    ~Handle();
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;

    void *get() const { return m_handle; }

    /// What the last call on this handle that failed says, with the code for it.
    RuntimeError error(Dialect dialect) const;

private:
    short m_type;
    void *m_handle = nullptr;
};

/// ODBC's environment, in the version that Varnow speaks.
const Handle &environment();

/// All rows of the result that an executed statement offers; a closed result set when it offers none.
/// Raises the code of an error that comes up on the way, and errors::UserInterrupt when the observer stops
/// it.
ResultSet fetchAll(const Handle &statement, Dialect dialect, const RowObserver &onRow);

} // namespace varnow::db
