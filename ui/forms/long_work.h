#pragma once

#include <QString>
#include <functional>

#include "processing/trace_count.h"

class QWidget;

namespace tarnvik {

/// Runs work on traces that may last. After a moment its progress is shown in a box over `form`, with a
/// way to stop; the box keeps everything else of the program from the hand. `label` tells what stands in it.
void Run_Long_Work(QWidget* form, const std::function<QString(std::int64_t done, std::int64_t all)>& label,
                   const std::function<void(const TraceProgress&)>& work);

}  // namespace tarnvik
