#pragma once

#include "db/ConnectionSettings.h"

#include <QStringList>

namespace varnow {

/// What one run of the program works with. Made at the start and passed by reference.
struct Session
{
    db::ConnectionSettings configurationDatabase; ///< holds everything that is edited
    db::ConnectionSettings velmoraDatabase;       ///< the main application's; only its version is read

    QStringList configurationNames; ///< trimmed, in the database's order
    QString defaultConfiguration;   ///< the one that the editor opens first

    QString greeting = {}; ///< what the editor is to tell when it opens; mostly nothing
};

} // namespace varnow
