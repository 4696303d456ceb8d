// The data display with every field of a large database.

#include "BenchDatabase.h"
#include "rows.h"
#include "secondsUntilShown.h"
#include "support/Driver.h"

#include "review/ListingWindow.h"
#include "storage/Run.h"
#include "ui/RunWindow.h"

#include <QFile>
#include <QWidget>

#include <malloc.h>

namespace varnow::bench {

namespace {

constexpr Size size{20, 500, 10};

double residentBytes()
{
    QFile statistics(QStringLiteral("/proc/self/statm"));
    if (!statistics.open(QIODevice::ReadOnly))
        return 0;
    return statistics.readAll().split(' ').value(1).toDouble() * 4096;
}

/// Opens the data display on the fields; `measure` lists them.
template <class Measure> void display(benchmark::State &state, double allowance, Measure measure)
{
    const BenchDatabase database(size);
    const Session session{database.settings(), database.settings(), {}, {}};
    Document document(session);
    ui::RunWindow run;
    document.reload(run);
    ListingWindow window(document);
    const test::Driver user(window);
    const auto list = [&] { return secondsUntilShown([&] { user.click("fields"); }); };
    sideBySide(
        state, 1, [&] { return measure(list); }, [&] { return allowance; });
    window.surface()->window()->hide();
}

} // namespace

void addDisplayRows()
{
    addRow("data display of 100,000 fields | 3 seconds", "s", 3,
           [](benchmark::State &state) { display(state, 3, [](const auto &list) { return list(); }); });
    addRow("the same | 1 GiB resident in all", "bytes", 1, [](benchmark::State &state) {
        display(state, 1 << 30, [](const auto &list) {
            malloc_trim(0); // what the rows before left behind
            list();
            return residentBytes();
        });
    });
}

} // namespace varnow::bench
