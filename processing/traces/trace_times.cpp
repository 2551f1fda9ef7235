#include "processing/traces/trace_times.h"

#include <cmath>

#include "core/fault.h"
#include "core/text/number.h"
#include "processing/traces/trace_words.h"

namespace tarnvik {

int Interval_Us(const char* header) {
    return static_cast<int>(TraceWord(words::dt).Value(header));
}

double Start_Us(const char* header) {
    return TraceWord(words::delrt).Value(header) * 1000;
}

void Set_Start(char* header, double start_us, std::int64_t trace, std::vector<std::string>& notes) {
    const double ms = start_us / 1000;
    TraceWord(words::delrt).Set_Or_Fault(header, ms, trace);
    const double kept = Start_Us(header) / 1000;
    if (notes.empty() && std::abs(kept - ms) > 1e-3) {
        notes.push_back("trace " + std::to_string(trace) + ": the first sample is at " + CStr(ms) +
                        " ms, delrt holds whole milliseconds and tells " + CStr(kept));
    }
}

void Refuse_Interval(std::int64_t trace, int interval, int before) {
    throw Fault("trace " + std::to_string(trace) + ": dt = " + std::to_string(interval) +
                ", the traces before have " + std::to_string(before));
}

}  // namespace tarnvik
