#include "OffscreenPlatform.h"
#include "rows.h"

#include "ui/Application.h"
#include "ui/MessageBox.h"

#include <benchmark/benchmark.h>

#include <cstdio>

namespace varnow::bench {

namespace {

/// Prints one row for every benchmark: what was measured, what stands beside it, and their ratio.
class Table : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override
    {
        std::printf("%-66s %10s %10s %8s %8s\n", "Work", "measured", "beside", "ratio", "at most");
        return true;
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred) {
                ++m_missed;
                std::printf("%-66s %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
                continue;
            }
            const auto figure = [&](const char *name) { return run.counters.at(name).value; };
            const bool within = figure("ratio") <= figure("atMost");
            m_missed += within ? 0 : 1;
            std::printf("%-66s %10.4g %10.4g %8.2f %8.2f %s\n",
                        (run.run_name.function_name + ", " + run.report_label).c_str(), figure("measured"),
                        figure("beside"), figure("ratio"), figure("atMost"), within ? "" : "missed");
            std::fflush(stdout);
        }
    }

    void Finalize() override { std::printf("%d missed\n", m_missed); }

private:
    int m_missed = 0;
};

} // namespace

} // namespace varnow::bench

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    const varnow::bench::OffscreenPlatform platform;
    const varnow::ui::Application application(argc, argv);
    varnow::ui::setMessageBoxHandler([](const varnow::ui::MessageBox &box) {
        const bool isQuestion = box.buttons == varnow::ui::Buttons::YesNo;
        return isQuestion ? varnow::ui::Answer::Yes : varnow::ui::Answer::Ok;
    });
    varnow::bench::addStoreRows();
    varnow::bench::addEditorRows();
    varnow::bench::addDisplayRows();
    varnow::bench::addSaveRows();
    varnow::bench::addJournalRows();
    varnow::bench::addStartRows();
    varnow::bench::Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return 0;
}
