#include "storage/schemaVersion.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "db/Connection.h"

#include <optional>

namespace varnow {

namespace {

using Verdict = SchemaVersionCheck::Verdict;

/// Where a database keeps its schema version, and the version that this build requires.
struct VersionSource
{
    QString column;
    float required;
};

VersionSource versionSource(DatabaseRole role)
{
    switch (role) {
    case DatabaseRole::Configuration:
        return {QStringLiteral("database_version"), 2.001F};
    case DatabaseRole::Velmora:
        return {QStringLiteral("version"), 2.008F};
    }
    Q_UNREACHABLE();
}

/// The version as the required ones are held, in single precision, so that 2.001 equals 2.001 whatever the
/// type of its column.
Verdict compare(const QVariant &stored, float required)
{
    if (stored.isNull())
        return Verdict::Earlier;
    const auto version = static_cast<float>(toDouble(stored));
    return version > required ? Verdict::Newer : version == required ? Verdict::Exact : Verdict::Earlier;
}

} // namespace

SchemaVersionCheck checkSchemaVersion(const db::ConnectionSettings &database, DatabaseRole role)
{
    const VersionSource source = versionSource(role);
    const auto numberOf = [](const RuntimeError &error) { return error.number(); };
    SchemaVersionCheck check;
    std::optional<db::Connection> connection;
    const int openError = guarded([&] { return connection.emplace(database), 0; }, numberOf);
    check.isConnected = openError == 0;
    if (!check.isConnected) {
        if (role == DatabaseRole::Configuration)
            check.errorNumber = openError;
        return check;
    }
    db::ResultSet rows;
    const auto query = [&] {
        rows = connection->execute("SELECT " + source.column + " FROM database_version;");
        return true;
    };
    if (!guarded(query, [](const RuntimeError &) { return false; }))
        return check;
    const auto judge = [&] {
        check.verdict = compare(rows.value(source.column), source.required);
        return 0;
    };
    check.errorNumber = guarded(judge, numberOf);
    return check;
}

} // namespace varnow
