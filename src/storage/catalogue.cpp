#include "storage/catalogue.h"

#include "base/guarded.h"
#include "base/text.h"
#include "db/Connection.h"

#include <limits>

namespace varnow {

namespace {

/// The trimmed text of a column of the current row. Null raises errors::InvalidUseOfNull.
QString textOf(const db::ResultSet &rows, const QString &column)
{
    const QVariant &value = rows.value(column);
    if (value.isNull())
        throw RuntimeError(errors::InvalidUseOfNull);
    return trim(value.toString());
}

/// The result of a query, closed when it failed.
db::ResultSet tryQuery(Run &run, const QString &sql)
{
    const auto query = [&] { return run.load(QStringLiteral("Reading the configurations"), sql); };
    return guarded(query, [](const RuntimeError &error) {
        if (error.number() == errors::UserInterrupt)
            throw error;
        return db::ResultSet();
    });
}

void readDataFieldNames(db::ResultSet rows, const QString &configuration, QStringList &names)
{
    const int owner = rows.column(QStringLiteral("config_name"));
    const int name = rows.column(QStringLiteral("field_name"));
    for (int row = 1; !rows.atEnd(); rows.moveNext(), ++row) {
        if (trim(rows.value(owner).toString()) == configuration)
            names += trim(rows.value(name).toString());
        if (row > std::numeric_limits<qint16>::max())
            throw RuntimeError(errors::Overflow);
    }
}

} // namespace

QStringList loadConfigurationNames(Run &run)
{
    db::ResultSet rows =
        tryQuery(run, QStringLiteral("SELECT DISTINCT config_name FROM data_extractor_config;"));
    QStringList names;
    for (; rows.isOpen() && !rows.atEnd(); rows.moveNext())
        names += textOf(rows, QStringLiteral("config_name"));
    return names;
}

DefaultConfiguration loadDefaultConfiguration(Run &run)
{
    using enum DefaultConfiguration::Problem;
    const db::ResultSet rows =
        tryQuery(run, QStringLiteral("SELECT DefaultConfigName FROM Misc_upload_constants;"));
    if (!rows.isOpen())
        return {.problem = QueryFailed};
    if (rows.rowCount() == 0)
        return {.problem = NoRow};
    const auto read = [&]() -> DefaultConfiguration {
        const QString name = textOf(rows, QStringLiteral("DefaultConfigName"));
        if (name.isEmpty())
            return {.problem = Blank};
        return {.name = name};
    };
    return guarded(read, [](const RuntimeError &) { return DefaultConfiguration{.problem = Unreadable}; });
}

DataFieldNames loadDataFieldNames(const db::ConnectionSettings &database, const QString &configuration)
{
    using enum DataFieldNames::Outcome;
    DataFieldNames result;
    result.outcome = NotConnected;
    const auto load = [&] {
        db::Connection connection(database.trimmed());
        result.outcome = QueryFailed;
        db::ResultSet rows = connection.execute("SELECT config_name, field_name "
                                                "FROM data_extractor_fields_config "
                                                "WHERE LTRIM(RTRIM(config_name)) = " +
                                                db::quoted(configuration) + " ORDER BY field_name;");
        result.outcome = BrokenOff;
        readDataFieldNames(std::move(rows), configuration, result.names);
        result.outcome = Complete;
        return 0;
    };
    result.errorNumber = guarded(load, [&](const RuntimeError &error) {
        result.errorDescription = error.description();
        return error.number();
    });
    return result;
}

QHash<QString, QStringList> loadAllDataFieldNames(Run &run)
{
    QHash<QString, QStringList> names;
    for (db::ResultSet rows =
             run.load(QStringLiteral("Reading the data field names"),
                      QStringLiteral("SELECT config_name, field_name FROM data_extractor_fields_config;"));
         !rows.atEnd(); rows.moveNext())
        names[trim(rows.value(0).toString())] += trim(rows.value(1).toString());
    return names;
}

} // namespace varnow
