#include "benchmarks/ResultTable.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace velmora {
namespace {

constexpr std::array<std::string_view, kSideCount> kSideNames{"velmora", "f1", "f2", "qt"};
constexpr std::array<std::string_view, kSideCount> kSideTitles{"Velmora", "F1", "F2", "Qt"};

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

std::string Padded(const std::string& text, int width) {
    std::array<char, 160> padded{};
    std::snprintf(padded.data(), padded.size(), "| %*s ", width, text.c_str());
    return padded.data();
}

constexpr int kWorkWidth = -40;
constexpr int kValueWidth = 10;
constexpr int kRatioWidth = 6;
constexpr int kTargetWidth = -24;

}  // namespace

bool ResultTable::Row::Meets(const Target& target) const {
    if (target.of == Side::Velmora) return Value(target.of) <= target.most;
    return Value(target.of) > 0 && Value(Side::Velmora) <= target.most * Value(target.of);
}

bool ResultTable::Row::MeetsAll() const {
    return std::all_of(targets.begin(), targets.end(), [this](Target t) { return Meets(t); });
}

void ResultTable::AddRow(const std::string& work, const Targets& targets, Unit unit) {
    if (!Find(work)) m_rows.push_back({work, targets, unit});
}

void ResultTable::Set(const std::string& work, Side side, double value) {
    if (Row* row = Find(work)) row->values[static_cast<int>(side)] = value;
}

std::string ResultTable::BenchmarkName(const std::string& work, Side side) {
    return work + '/' + std::string(kSideNames[static_cast<std::size_t>(side)]);
}

void ResultTable::TakeMinima(const std::vector<benchmark::BenchmarkReporter::Run>& runs) {
    for (const auto& run : runs) {
        if (run.error_occurred || run.run_type != benchmark::BenchmarkReporter::Run::RT_Iteration) {
            continue;
        }
        const std::string& name = run.run_name.function_name;
        const std::size_t slash = name.rfind('/');
        if (slash == std::string::npos) continue;
        const auto side = std::find(kSideNames.begin(), kSideNames.end(),
                                    std::string_view(name).substr(slash + 1));
        Row* const row = Find(name.substr(0, slash));
        if (side == kSideNames.end() || !row) continue;
        double& value = row->values[side - kSideNames.begin()];
        const double time = run.GetAdjustedCPUTime();
        value = value == 0 ? time : std::min(value, time);
    }
}

std::string ResultTable::Text() const {
    std::string text = Padded("work", kWorkWidth);
    for (const std::string_view title : kSideTitles)
        text += Padded(std::string(title), kValueWidth);
    for (std::size_t side = 1; side < kSideTitles.size(); ++side) {
        text += Padded("/ " + std::string(kSideTitles[side]), kRatioWidth);
    }
    text += Padded("wanted", kTargetWidth) + "| met |\n|---";
    for (int column = 0; column < 2 * kSideCount - 1; ++column) text += "|--:";
    text += "|---|---|\n";
    for (const Row& row : m_rows) {
        if (row.Value(Side::Velmora) > 0) text += Line(row);
    }
    return text;
}

std::vector<std::string> ResultTable::Missed() const {
    std::vector<std::string> missed;
    for (const Row& row : m_rows) {
        if (row.Value(Side::Velmora) > 0 && !row.MeetsAll()) missed.push_back(row.work);
    }
    return missed;
}

ResultTable::Row* ResultTable::Find(const std::string& work) {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                  [&](const Row& candidate) { return candidate.work == work; });
    return row == m_rows.end() ? nullptr : &*row;
}

std::string ResultTable::Line(const Row& row) {
    std::string line = Padded(row.work, kWorkWidth);
    for (const double value : row.values) line += Padded(AmountText(value, row.unit), kValueWidth);
    for (const Side side : {Side::Fill, Side::Cells, Side::Qt}) {
        line += Padded(RatioText(row.Value(Side::Velmora), row.Value(side)), kRatioWidth);
    }
    std::string wanted;
    for (const Target& target : row.targets) {
        if (!wanted.empty()) wanted += ", ";
        if (target.of == Side::Velmora) {
            wanted += "<= " + AmountText(target.most, row.unit);
            continue;
        }
        wanted += "/ " + std::string(kSideTitles[static_cast<std::size_t>(target.of)]) +
                  Formatted(" <= %.2f", target.most);
    }
    const char* const met = row.targets.empty() ? "" : row.MeetsAll() ? "yes" : "NO";
    return line + Padded(wanted, kTargetWidth) + "| " + met + " |\n";
}

}  // namespace velmora
