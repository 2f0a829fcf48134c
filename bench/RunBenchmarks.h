#pragma once

namespace tintwick {

/// Runs the benchmarks of this executable and prints the median of several runs of each as a line of the table:
/// processor time, which other programs hardly affect, or the quantity that the benchmark reports. The label is printed
/// after the name, and each of its counters as `name figure`.
int runBenchmarks(int argc, char** argv);

} // namespace tintwick
