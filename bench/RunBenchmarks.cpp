#include "RunBenchmarks.h"

#include "Table.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace tintwick {

namespace {

class TableReporter final : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                m_hasFailed = true;
            } else if (run.aggregate_name == "median") {
                print(run);
            }
        }
    }

    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

private:
    static void print(const Run& run)
    {
        const benchmark::BenchmarkName& name = run.run_name;
        std::string what = name.function_name;
        for (const std::string& part : {name.args, run.report_label}) {
            what += part.empty() ? part : ' ' + part;
        }
        std::string counters;
        for (const auto& [counter, figure] : run.counters) {
            std::array<char, 16> text{};
            std::snprintf(text.data(), text.size(), "%.2f", figure.value);
            counters += counter + ' ' + text.data() + "  ";
        }
        const bool isProcessorTime = name.time_type.empty();
        printRow(what, isProcessorTime ? run.GetAdjustedCPUTime() : run.GetAdjustedRealTime(),
                 benchmark::GetTimeUnitString(run.time_unit), counters);
    }

    bool m_hasFailed = false;
};

} // namespace

int runBenchmarks(int argc, char** argv)
{
    // Arguments of the command line come later and take precedence.
    std::string repetitions = "--benchmark_repetitions=5";
    std::string leastTime = "--benchmark_min_time=0.1";
    std::vector<char*> arguments{argv[0], repetitions.data(), leastTime.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);

    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return EXIT_FAILURE;
    }
    TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return reporter.hasFailed() ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace tintwick
