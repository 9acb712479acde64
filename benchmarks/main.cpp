#include "benchmarks/Suites.h"

#include <QApplication>

#include <cstdio>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// Fills the table, and shows on the error output how far the run is.
class Collector : public benchmark::BenchmarkReporter {
public:
    explicit Collector(ResultTable& table) : m_table(table) {}

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        m_table.TakeMinima(runs);
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
                m_failed = true;
            }
        }
    }

    bool Failed() const { return m_failed; }

private:
    ResultTable& m_table;
    bool m_failed = false;
};

/// Ours first, so that the command line's own come last and win.
std::vector<char*> WithDefaults(int argc, char** argv) {
    static char defaults[][48] = {"--benchmark_repetitions=9", "--benchmark_min_time=0.05",
                                  "--benchmark_enable_random_interleaving=true"};
    std::vector<char*> arguments{argv[0]};
    for (char* argument : defaults) arguments.push_back(argument);
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    return arguments;
}

int Main() {
    ResultTable table;
    MeasureMemory(table);
    RegisterWidgetBenchmarks(table);
    RegisterDropDownBenchmarks(table);
    RegisterDateBenchmarks(table);
    Collector collector(table);
    benchmark::RunSpecifiedBenchmarks(&collector);
    constexpr int kMostRuns = 3;
    std::string noise;
    for (int run = 2; run <= kMostRuns; ++run) {
        for (const std::string& work : table.Missed()) {
            noise += "- " + work + ": run " + std::to_string(run) + '\n';
            benchmark::RunSpecifiedBenchmarks(&collector, '^' + work + '/');
        }
    }
    std::printf(
        "%s\nCPU time on one core, off screen; the shortest of interleaved repetitions, all of one "
        "run.\nF1 fills an image and copies it. F2 is a plain QPainter that fills 42 cells and "
        "draws their\ntexts and pictures, for keys a widget written by hand that does no more. Qt "
        "is QCalendarWidget,\nwhose captions and pictures its `paintCell` draws, or the part of Qt "
        "that does the row's work.\n`@2` is a device pixel ratio; changes go through the posted "
        "updates of a shown window.\n",
        table.Text().c_str());
    if (!noise.empty()) {
        std::printf("\nMeasured again, as a bound was missed before (noise if it is met now):\n%s",
                    noise.c_str());
    }
    return collector.Failed() ? 1 : 0;
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::vector<char*> arguments = velmora::WithDefaults(argc, argv);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    return velmora::Main();
}
