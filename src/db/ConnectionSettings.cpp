#include "db/ConnectionSettings.h"

#include "base/text.h"

namespace varnow::db {

Dialect ConnectionSettings::dialect() const
{
    return trimmedView(server).compare(u"(sqlite)", Qt::CaseInsensitive) == 0 ? Dialect::Sqlite
                                                                              : Dialect::SqlServer;
}

ConnectionSettings ConnectionSettings::trimmed() const
{
    return {trim(server), trim(database), trim(user), trim(password), timeout};
}

} // namespace varnow::db
