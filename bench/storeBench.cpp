// Loading and storing: what the record tables cost.

#include "BenchDatabase.h"
#include "bareOdbc.h"
#include "rows.h"
#include "sideBySide.h"

#include "storage/statements.h"

#include <algorithm>
#include <random>

namespace varnow::bench {

namespace {

constexpr Size large{20, 500, 10};
constexpr Size small{20, 50, 10};

// The records of one measurement stay until right before the next. Freed earlier, their memory would go to
// the floor or back to the system, and getting it anew would count as loading.

double secondsToLoad(const BenchDatabase &database, Model &model)
{
    model = Model();
    return seconds([&] { load(database.settings(), model); });
}

void loadBesideBareFetch(benchmark::State &state)
{
    const BenchDatabase database(large);
    Model model;
    const std::string connection = odbcConnectionString(database.settings());
    const auto bareFetch = [&] {
        runBare(connection, selectAllRows<Line>().toStdString());
        runBare(connection, selectAllRows<Field>().toStdString());
    };
    sideBySide(
        state, 1.35, [&] { return secondsToLoad(database, model); }, [&] { return seconds(bareFetch); });
}

void loadBesideTenth(benchmark::State &state)
{
    const BenchDatabase tenth(small);
    const BenchDatabase whole(large);
    Model model;
    sideBySide(
        state, 12, [&] { return secondsToLoad(whole, model); }, [&] { return secondsToLoad(tenth, model); });
}

/// Stores that many new fields of one configuration into the emptied table, in random order of their places.
double secondsToStore(FieldTable &fields, int count)
{
    std::vector<int> places(static_cast<std::size_t>(count));
    std::ranges::generate(places, [place = 0]() mutable { return place++; });
    std::ranges::shuffle(places, std::mt19937(1));
    std::vector<QString> names;
    for (const int place : places)
        names.push_back(QStringLiteral("Observation Value %1").arg(place));
    Field field;
    field.id = -1;
    field.configuration = "Standard";
    field.line = "OBX";
    field.dataType = "String";
    fields.assign({});
    return seconds([&] {
        for (std::size_t i = 0; i < places.size(); ++i) {
            field.name = field.lookup = names[i];
            field.messageIndex = places[i] / 20 + 1;
            field.position = places[i] % 20 + 1;
            fields.store(field);
        }
    });
}

void storeBesideTenth(benchmark::State &state)
{
    FieldTable fields;
    sideBySide(
        state, 13, [&] { return secondsToStore(fields, 100'000); },
        [&] { return secondsToStore(fields, 10'000); });
}

void memoryPerField(benchmark::State &state)
{
    const BenchDatabase database(large);
    Model model;
    load(database.settings(), model);
    const auto bytesPerField = [&] {
        model.fields.assign({}); // the lines stay, so that only the fields count
        const double before = heapInUse();
        load(database.settings(), model);
        return (heapInUse() - before) / large.fields();
    };
    sideBySide(state, 1, bytesPerField, [] { return 1024.0; });
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
