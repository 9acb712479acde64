#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace velmora {

/// Whose work a measurement is; each has a column.
enum class Side { Velmora, Fill, Cells, Qt };
inline constexpr int kSideCount = 4;

/// What is wanted of a row, as ratios within one run. 0 wants nothing.
struct Target {
    double mostOfCells = 0;  // our time as a multiple of the floor of 42 filled and labelled cells
    double leastTimesOfQt = 0;  // how many times ours goes into Qt's
};

/// The measurements of one run as one table, a row for each piece of work with all sides.
class ResultTable {
public:
    enum class Unit { Nanoseconds, Bytes };

    /// Rows appear in the order in which they are added.
    void AddRow(const std::string& work, Target target = {}, Unit unit = Unit::Nanoseconds);
    void Set(const std::string& work, Side side, double value);

    /// How a benchmark is named for `ReadMedians` to find its row.
    static std::string BenchmarkName(const std::string& work, Side side);
    /// Takes the median of a finished benchmark, whatever else it has reported.
    void TakeMedians(const std::vector<benchmark::BenchmarkReporter::Run>& runs);

    /// On standard output. Rows without a measurement of ours are left out.
    void Print() const;

private:
    struct Row {
        std::string work;
        Target target;
        Unit unit;
        double values[kSideCount] = {};  // 0 is not measured
    };
    Row* Find(const std::string& work);
    static void PrintRow(const Row& row);

    std::vector<Row> m_rows;
};

}  // namespace velmora
