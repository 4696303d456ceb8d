// Loading and storing: what the record tables cost.

#include "BenchDatabase.h"
#include "bareOdbc.h"
#include "rows.h"
#include "sideBySide.h"

#include "fields/modLabLineFldCfg.h"

#include <algorithm>
#include <random>

namespace varnow::bench {

namespace {

constexpr Size large{20, 500, 10};
constexpr Size small{20, 50, 10};

double load()
{
    emptyStores();
    return seconds([] { LoadAllLabLineData(); });
}

void loadBesideBareFetch(benchmark::State &state)
{
    const BenchDatabase database(large);
    const std::string connection = odbcConnectionString();
    const auto bareFetch = [&] {
        return seconds([&] {
            runBare(connection,
                    "SELECT id, Configuration, Name, NameIndex, MsgIndex, number1, string1, text1, date1 "
                    "FROM LabLineConfig ORDER BY Configuration, MsgIndex;");
            runBare(connection,
                    "SELECT id, Configuration, Name, NameIndex, Line, LineIndex, MsgIndex, Position, Length, "
                    "DataType, LookupString, FormatString, Constant, ValidationString, FixedLength, PadChar, "
                    "PadDirection FROM LabLineFieldConfig ORDER BY MsgIndex, Position;");
        });
    };
    sideBySide(state, 1.5, load, bareFetch);
}

void loadBesideTenth(benchmark::State &state)
{
    const BenchDatabase tenth(small);
    const BenchDatabase whole(large);
    const auto loadFrom = [](const BenchDatabase &database) {
        database.use();
        return load();
    };
    sideBySide(
        state, 12, [&] { return loadFrom(whole); }, [&] { return loadFrom(tenth); });
}

/// Stores that many new fields of one configuration, in random order of their places.
double storeFields(int count)
{
    std::vector<int> places(static_cast<std::size_t>(count));
    std::ranges::generate(places, [place = 0]() mutable { return place++; });
    std::ranges::shuffle(places, std::mt19937(1));
    std::vector<QString> names;
    for (const int place : places)
        names.push_back(QStringLiteral("Observation Value %1").arg(place));
    emptyStores();
    QString configuration = QStringLiteral("Standard");
    return seconds([&] {
        for (std::size_t i = 0; i < places.size(); ++i)
            StoreDataInLabLineFldCfgArray(configuration, names[i], QStringLiteral("OBX"), places[i] % 20 + 1,
                                          places[i] / 20 + 1, 0, 0, -1, 0, QStringLiteral("String"), names[i],
                                          QString(), QString(), 0, QString(), 0, 0);
    });
}

void storeBesideTenth(benchmark::State &state)
{
    sideBySide(
        state, 13, [] { return storeFields(100'000); }, [] { return storeFields(10'000); });
    emptyStores();
}

void memoryPerField(benchmark::State &state)
{
    const BenchDatabase database(large);
    const auto load = [] {
        emptyStores();
        const double before = heapInUse();
        auto rows = std::make_shared<db::Recordset>();
        GetAllLabLineFieldsConfig(rows);
        rows.reset();
        return (heapInUse() - before) / large.fields();
    };
    sideBySide(state, 1, load, [] { return 1024.0; });
}

} // namespace

void addStoreRows()
{
    addRow("load 10,000 lines, 100,000 fields | bare ODBC fetch", "s", 7, loadBesideBareFetch);
    addRow("the same | 1,000 lines, 10,000 fields", "s", 5, loadBesideTenth);
    addRow("store 100,000 fields in random order | 10,000", "s", 7, storeBesideTenth);
    addRow("memory per field held | 1 KiB", "bytes", 3, memoryPerField);
}

} // namespace varnow::bench
