#pragma once

#include "db/ConnectionSettings.h"

#include <string>

namespace varnow::bench {

/// The connection string that the program makes of these settings, in ODBC's terms.
std::string odbcConnectionString(const db::ConnectionSettings &settings);

/// What a program without any layer does. Every error ends the program.
class BareConnection
{
public:
    explicit BareConnection(const std::string &connectionString);
    ~BareConnection();
    BareConnection(const BareConnection &) = delete;
    BareConnection &operator=(const BareConnection &) = delete;

    /// Runs a statement and fetches every column of every row into one buffer.
    void run(const std::string &statement);

private:
    void *m_handle = nullptr;
};

/// Runs a statement on a connection of its own.
void runBare(const std::string &connectionString, const std::string &statement);

} // namespace varnow::bench
