#include "db/ConnectionSettings.h"

#include "base/text.h"

namespace varnow::db {

Dialect ConnectionSettings::dialect() const
{
    return trimmedView(server) == u"(sqlite)" ? Dialect::Sqlite : Dialect::SqlServer;
}

ConnectionSettings ConnectionSettings::trimmed() const
{
    return {trim(server), trim(database), trim(user), trim(password)};
}

} // namespace varnow::db
