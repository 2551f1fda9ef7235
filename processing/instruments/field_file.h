#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarnvik {

/// Where shot and receiver of a trace stand, in units of length; what is not known has no value.
struct TracePlaces {
    std::optional<double> ShotX;
    std::optional<double> ShotY;
    std::optional<double> ShotElevation;
    std::optional<double> ReceiverX;
    std::optional<double> ReceiverY;
    std::optional<double> ReceiverElevation;
};

/// A trace of an instrument's file as it is shown before a conversion.
struct FieldTrace {
    std::int64_t Number = 0;  ///< in its file, from 1
    std::int64_t Record = 0;  ///< number of the shot by the headers, 0 where they tell none
    std::int64_t Channel = 0;
    int Stack = 0;     ///< shots added up, 0 where it is not told
    double Delay = 0;  ///< ms between shot and first sample; below 0 the recording began before the shot
    TracePlaces Places;
    std::vector<float> Samples;  ///< as they go into the SU file
};

/// What a file of an instrument holds and how it was read.
struct FieldFile {
    std::string File;                  ///< its path
    std::string Format;                ///< "SEG-2", "SEG-Y", "SU"; empty where it is none of them
    std::string ByteOrder;             ///< "little", "big"
    std::string SampleFormat;          ///< "int8", "int16", "int20", "int32", "float32", "float64", "ibm32"
    std::string TextHeader;            ///< "EBCDIC", "ASCII"; empty where the file has none
    std::int64_t Traces = 0;           ///< whole ones
    int Samples = 0;                   ///< of the longest trace; the others are filled up with zeros
    double Interval = 0;               ///< microseconds, as the file tells it, 0 where it does not
    double Delay = 0;                  ///< ms, of the first trace
    std::optional<std::int64_t> Shot;  ///< number of the first shot by the headers
    std::vector<std::string> Assumed;  ///< how it was read where the file leaves a choice; a sentence each
    std::vector<std::string> Faults;   ///< what is wrong with it; a sentence each
    std::vector<std::string>
        Notes;  ///< lines of text that came with it (text header, strings of the file and of its first trace)
    bool Usable = false;              ///< traces can be taken from it; otherwise Faults tells why not
    std::vector<FieldTrace> Preview;  ///< first traces
    std::int64_t Written = 0;         ///< traces that a conversion took from it
};

}  // namespace tarnvik
