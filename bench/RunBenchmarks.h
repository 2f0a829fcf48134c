#pragma once

namespace tintwick {

/// Runs the program's benchmarks and prints the median of several runs of each as a line of the table: processor time, which
/// other programs on the machine hardly change, or what a benchmark says it measures instead. Its label is printed after its
/// name, and each of its counters as `name figure`.
int runBenchmarks(int argc, char** argv);

} // namespace tintwick
