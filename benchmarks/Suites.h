#pragma once

#include "benchmarks/ResultTable.h"

namespace velmora {

/// Each registers its benchmarks and adds their rows; the table must outlive the run.

/// Painting, changes until they are painted, and the life of a widget.
void RegisterWidgetBenchmarks(ResultTable& table);
/// Opening the date box.
void RegisterDropDownBenchmarks(ResultTable& table);
/// Hit tests, date arithmetic, date text.
void RegisterDateBenchmarks(ResultTable& table);
/// Measures at once, before anything else uses the heap: bytes per shown calendar.
void MeasureMemory(ResultTable& table);

}  // namespace velmora
