#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarnvik {

/// The ways of giving one header word a value along a range of traces.
enum class ChangeWay {
    Constant,         ///< the same value on all traces
    Multiply,         ///< what stands there, times a factor
    Increment,        ///< a start, and a step more on each trace
    Channels,         ///< 1 to the number of channels, again for each record
    ValueByTrace,     ///< a value of a file for each trace of the range
    ValueByShot,      ///< a value of a file for all traces of a record
    ValueByReceiver,  ///< values of a file along each record, starting some lines further on in the next one
};

/// One word along traces FirstTrace to LastTrace, from 1. Records are counted by the number of the trace in
/// the file; the first value of a file belongs to the first trace of the range, or to its record.
struct HeaderChange {
    ChangeWay Way = ChangeWay::Constant;
    std::int64_t FirstTrace = 1;
    std::int64_t LastTrace = 1;
    double Value = 0;             ///< constant, factor or start
    double Step = 0;              ///< of an increment
    std::int64_t Channels = 1;    ///< traces of a record, 1 or more
    std::int64_t LinesAShot = 1;  ///< of the file, from the start of a record to that of the next one
    std::vector<double> FileValues;

    /// Line of the file (from 1) that a trace takes its value from; nothing for ways without a file.
    std::optional<std::int64_t> Line_Of(std::int64_t trace) const;
    /// Lines that the file must have; 0 for ways without a file.
    std::int64_t Lines_Needed() const;
    /// What a trace gets in the place of `former`. A line that the file does not have is a Fault.
    double New_Value(std::int64_t trace, double former) const;
};

/// Values of a text, one on each line; empty lines behind the last value do not count. Where a line does not
/// begin with a number, its number (from 1) stands in `WrongLine`.
struct ListedValues {
    std::vector<double> Values;
    std::optional<std::int64_t> WrongLine;
};
ListedValues Values_Of_Lines(std::string_view text);

}  // namespace tarnvik
