#pragma once

namespace varnow::db {

/// The provider's error codes: what the database routines return for a failed open or statement.
namespace codes {
inline constexpr int Failure = -2147467259; ///< no connection, a lost one, or anything without own code
inline constexpr int MissingTable = -2147217865;
inline constexpr int Constraint = -2147217873;
inline constexpr int Permission = -2147217911;
inline constexpr int TimeOut = -2147217871;
inline constexpr int DataOverflow = -2147217833;
inline constexpr int Conversion = -2147217913;
inline constexpr int Syntax = -2147217900; ///< syntax error or unknown column
} // namespace codes

} // namespace varnow::db
