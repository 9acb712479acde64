#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace velmora {

/// Whose work a measurement is; each has a column.
enum class Side { Velmora, Fill, Cells, Qt };
inline constexpr int kSideCount = 4;

/// What is wanted of a row: ours is at most that multiple of another side's of the same run, or, of
/// `Side::Velmora`, at most that amount.
struct Target {
    Side of;
    double most;
};
using Targets = std::vector<Target>;

/// The measurements of one run as one table, a row for each piece of work with all sides.
class ResultTable {
public:
    enum class Unit { Nanoseconds, Bytes };

    /// Rows appear in the order in which they are added.
    void AddRow(const std::string& work, const Targets& targets = {},
                Unit unit = Unit::Nanoseconds);
    void Set(const std::string& work, Side side, double value);

    /// How a benchmark is named for `TakeMinima` to find its row.
    static std::string BenchmarkName(const std::string& work, Side side);
    /// Takes the shortest repetition: whatever else the computer does only makes a run longer.
    void TakeMinima(const std::vector<benchmark::BenchmarkReporter::Run>& runs);

    /// As Markdown. Rows without a measurement of ours are left out.
    std::string Text() const;
    /// The work of the rows that miss a target.
    std::vector<std::string> Missed() const;

private:
    struct Row {
        std::string work;
        Targets targets;
        Unit unit;
        double values[kSideCount] = {};  // 0 is not measured

        double Value(Side side) const { return values[static_cast<int>(side)]; }
        bool Meets(const Target& target) const;
        bool MeetsAll() const;
    };
    Row* Find(const std::string& work);
    static std::string Line(const Row& row);

    std::vector<Row> m_rows;
};

}  // namespace velmora
