#include "db/errorCodes.h"

namespace varnow::db {

namespace {

int sqliteCode(int resultCode, const QString &message)
{
    switch (resultCode & 0xff) { // the upper bits say more than is needed
    case 1:                      // SQLITE_ERROR, of which only the text tells more
        return message.contains(u"no such table") ? codes::MissingTable : codes::Syntax;
    case 3:  // SQLITE_PERM
    case 8:  // SQLITE_READONLY
    case 23: // SQLITE_AUTH
        return codes::Permission;
    case 5: // SQLITE_BUSY
    case 6: // SQLITE_LOCKED
        return codes::TimeOut;
    case 18: // SQLITE_TOOBIG
        return codes::DataOverflow;
    case 19: // SQLITE_CONSTRAINT
        return codes::Constraint;
    case 20: // SQLITE_MISMATCH
        return codes::Conversion;
    default:
        return codes::Failure;
    }
}

int sqlStateCode(const QString &sqlState)
{
    if (sqlState == u"42S02")
        return codes::MissingTable;
    if (sqlState == u"HYT00" || sqlState == u"HYT01")
        return codes::TimeOut;
    if (sqlState == u"22001" || sqlState == u"22003")
        return codes::DataOverflow;
    if (sqlState.startsWith(u"22"))
        return codes::Conversion;
    if (sqlState.startsWith(u"23"))
        return codes::Constraint;
    if (sqlState.startsWith(u"42"))
        return codes::Syntax;
    return codes::Failure;
}

int sqlServerCode(int number, const QString &sqlState)
{
    switch (number) {
    case 208:
        return codes::MissingTable;
    case 515:  // Null not allowed
    case 547:  // check or foreign key
    case 2601: // unique index
    case 2627: // primary key
        return codes::Constraint;
    case 229: // on the table
    case 230: // on the column
    case 262: // on the database
        return codes::Permission;
    case 1222:  // waited too long for a lock
    case 20003: // FreeTDS: no answer in time
        return codes::TimeOut;
    case 220:  // arithmetic overflow of a small integer
    case 248:  // of an integer from text
    case 8115: // of any other type
    case 2628: // text too long, column named
    case 8152: // text too long
        return codes::DataOverflow;
    case 241: // text to date
    case 242: // date out of range
    case 245: // text to number
    case 8114:
        return codes::Conversion;
    case 102: // near a symbol
    case 105: // open quotation mark
    case 156: // near a keyword
    case 207: // unknown column
        return codes::Syntax;
    case 1205: // deadlock victim
        return codes::Failure;
    default:
        return sqlStateCode(sqlState);
    }
}

} // namespace

int errorCode(Dialect dialect, const QString &sqlState, int nativeError, const QString &message)
{
    switch (dialect) {
    case Dialect::SqlServer:
        return sqlServerCode(nativeError, sqlState);
    case Dialect::Sqlite:
        return sqliteCode(nativeError, message);
    }
    Q_UNREACHABLE();
}

} // namespace varnow::db
