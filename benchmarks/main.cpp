#include "benchmarks/Suites.h"

#include <QApplication>

#include <cstdio>
#include <vector>

namespace velmora {
namespace {

/// Fills the table, and shows on the error output how far the run is.
class Collector : public benchmark::BenchmarkReporter {
public:
    explicit Collector(ResultTable& table) : m_table(table) {}

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        m_table.TakeMedians(runs);
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
                                  "--benchmark_enable_random_interleaving=true",
                                  "--benchmark_report_aggregates_only=true"};
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
    table.Print();
    std::puts(
        "\nCPU time, medians of interleaved repetitions, all of one run off screen on one core.\n"
        "F1 fills an image and copies it. F2 is a plain QPainter with 42 fillRect and 42 "
        "drawText.\n"
        "Qt is QCalendarWidget (QDateEdit for the drop-down, QDate and QLocale for the last\n"
        "rows); its days have colours, but no captions. Full repaints go through\n"
        "QWidget::render into an image, changes through the posted updates of a shown 400x300\n"
        "window. F2 x: our time as a multiple of F2's. Qt /: how\n"
        "many times ours goes into Qt's.");
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
