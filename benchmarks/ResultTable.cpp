#include "benchmarks/ResultTable.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace velmora {
namespace {

constexpr std::array<std::string_view, kSideCount> kSideNames{"velmora", "f1", "f2", "qt"};

std::string Formatted(const char* format, double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

std::string AmountText(double value, ResultTable::Unit unit) {
    if (value == 0) return "-";
    if (unit == ResultTable::Unit::Bytes) return Formatted("%.1f KiB", value / 1024);
    if (value < 1000) return Formatted("%.1f ns", value);
    return Formatted("%.1f us", value / 1000);
}

std::string RatioText(double dividend, double divisor) {
    return dividend == 0 || divisor == 0 ? "-" : Formatted("%.2f", dividend / divisor);
}

std::string TargetText(const Target& target) {
    std::string text;
    if (target.mostOfCells > 0) text = "F2 x <= " + Formatted("%.0f", target.mostOfCells);
    if (target.leastTimesOfQt > 0) {
        if (!text.empty()) text += ", ";
        text += "Qt / >= " + Formatted("%.0f", target.leastTimesOfQt);
    }
    return text;
}

constexpr const char* kColumns = "%-42s %11s %10s %10s %11s %7s %8s  %-24s %s\n";

}  // namespace

void ResultTable::AddRow(const std::string& work, Target target, Unit unit) {
    if (!Find(work)) m_rows.push_back({work, target, unit});
}

void ResultTable::Set(const std::string& work, Side side, double value) {
    if (Row* row = Find(work)) row->values[static_cast<int>(side)] = value;
}

std::string ResultTable::BenchmarkName(const std::string& work, Side side) {
    return work + '/' + std::string(kSideNames[static_cast<std::size_t>(side)]);
}

void ResultTable::TakeMedians(const std::vector<benchmark::BenchmarkReporter::Run>& runs) {
    for (const auto& run : runs) {
        if (run.error_occurred || run.aggregate_name != "median") continue;
        for (std::size_t side = 0; side < kSideNames.size(); ++side) {
            const std::string& name = run.run_name.function_name;
            const std::size_t slash = name.rfind('/');
            if (slash == std::string::npos || name.substr(slash + 1) != kSideNames[side]) continue;
            Set(name.substr(0, slash), static_cast<Side>(side), run.GetAdjustedCPUTime());
        }
    }
}

void ResultTable::Print() const {
    std::printf(kColumns, "work", "Velmora", "F1", "F2", "Qt", "F2 x", "Qt /", "target", "met");
    for (const Row& row : m_rows) {
        if (*std::max_element(std::begin(row.values), std::end(row.values)) > 0) PrintRow(row);
    }
}

ResultTable::Row* ResultTable::Find(const std::string& work) {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                  [&](const Row& candidate) { return candidate.work == work; });
    return row == m_rows.end() ? nullptr : &*row;
}

void ResultTable::PrintRow(const Row& row) {
    const auto value = [&](Side side) { return row.values[static_cast<int>(side)]; };
    const auto text = [&](Side side) { return AmountText(value(side), row.unit); };
    const double ours = value(Side::Velmora);
    const double cells = value(Side::Cells);
    const double qt = value(Side::Qt);
    const Target& target = row.target;
    const bool wanted = target.mostOfCells > 0 || target.leastTimesOfQt > 0;
    const bool met =
        (target.mostOfCells == 0 || (cells > 0 && ours <= target.mostOfCells * cells)) &&
        (target.leastTimesOfQt == 0 || qt >= target.leastTimesOfQt * ours);
    std::printf(kColumns, row.work.c_str(), text(Side::Velmora).c_str(), text(Side::Fill).c_str(),
                text(Side::Cells).c_str(), text(Side::Qt).c_str(), RatioText(ours, cells).c_str(),
                RatioText(qt, ours).c_str(), TargetText(target).c_str(),
                !wanted ? ""
                : met   ? "yes"
                        : "NO");
}

}  // namespace velmora
