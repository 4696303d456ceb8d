#pragma once

#include <QString>

namespace varnow {

/// The path of the user's own copy of the sample database, in the state folder. It is made once, from the SQL
/// files that come with the program. Raises a RuntimeError with the reason when it cannot be made.
QString demoDatabase();

} // namespace varnow
