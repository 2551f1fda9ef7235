#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "processing/instruments/field_reader.h"
#include "processing/instruments/seg2_strings.h"
#include "processing/instruments/trace_remarks.h"

namespace tarnvik {

/// What the strings of a SEG-2 trace tell, those of the file standing in where the trace has none.
struct Seg2Trace {
    FieldHeader Header;                   ///< all words but `ns`, `tracl`, `tracr` and those below
    std::optional<double> Interval;       ///< seconds
    double Delay = 0;                     ///< ms
    double Factor = 1;                    ///< what a stored number is multiplied by
    std::optional<std::int64_t> Shot;     ///< SHOT_SEQUENCE_NUMBER
    std::optional<std::int64_t> Channel;  ///< CHANNEL_NUMBER
    std::optional<std::int64_t> Station;  ///< of the receiver
};

/// Reads the strings of trace `number` (from 1). What is assumed and what is wrong is told.
Seg2Trace Read_Seg2_Words(const Seg2Strings& file, const Seg2Strings& trace, std::int64_t number,
                          TraceRemarks& assumed, TraceRemarks& faults);

/// A date of an instrument.
struct Seg2Date {
    int Year = 0;
    int Day = 0;        ///< of the year, from 1
    bool Sure = false;  ///< the text leaves no other reading
    std::string Read;   ///< "3 April 2019"
};

/// "3/Apr/2019", "03/04/2019", "2019-04-03" and the like. Where day and month cannot be told apart the day
/// stands first, as the standard has it. Nothing where it is no date.
std::optional<Seg2Date> Read_Seg2_Date(const std::string& text);

}  // namespace tarnvik
