#pragma once

#include "db/Connection.h"

#include <QString>

#include <memory>

namespace varnow::db {

/// A statement and the connection it runs on.
struct Command
{
    ConnectionPtr connection;
    QString text;
    int type = 1; ///< always 1, SQL text
};

using CommandPtr = std::shared_ptr<Command>;

} // namespace varnow::db
