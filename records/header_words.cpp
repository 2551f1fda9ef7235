#include "records/header_words.h"

#include <array>

#include "core/fault.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

using enum WordType;

// Words 1 to 71 stand at the places of SEG-Y, 72 to 80 at those of Seismic Unix; 81 to 90 use the area that
// both leave unassigned. The labels are known to the users as they are, misprints included.
constexpr std::array<HeaderWord, header_words> table = {{
    {"tracl", 0, Int32, "Trace sequence number within line."},
    {"tracr", 4, Int32, "Trace sequence number within reel."},
    {"fldr", 8, Int32, "Original field record number."},
    {"tracf", 12, Int32, "Trace sequence number within original field record."},
    {"ep", 16, Int32, "Energy source point number."},
    {"cdp", 20, Int32, "CDP ensemble number."},
    {"cdpt", 24, Int32, "Trace sequence number within CDP ensemble."},
    {"trid", 28, Int16, "Trace identification code:1=data, 2=dead..."},
    {"nvs", 30, Int16, "Number of vertically summed traces yielding this trace."},
    {"nhs", 32, Int16, "Number of horizontally stacked traced yielding this trace."},
    {"duse", 34, Int16, "Data use (1 = production, 2 = test)."},
    {"offset", 36, Int32, "Distance from source point to receiver group."},
    {"gelev", 40, Int32, "Receiver group elevation."},
    {"selev", 44, Int32, "Surface elevation at source."},
    {"sdepth", 48, Int32, "Source depth below surface."},
    {"gdel", 52, Int32, "Datum elevation at receiver group."},
    {"sdel", 56, Int32, "Datum elevation at source."},
    {"swdep", 60, Int32, "Water depth at source."},
    {"gwdep", 64, Int32, "Water depth at receiver group."},
    {"scalel", 68, Int16, "Scalar for elevations and depths (+ = multiplier,"},
    {"scalco", 70, Int16, "Scalar for coordinates (+ = multiplier,"},
    {"sx", 72, Int32, "X source coordinate."},
    {"sy", 76, Int32, "Y source coordinate."},
    {"gx", 80, Int32, "X receiver group coordinate."},
    {"gy", 84, Int32, "Y receiver group coordinate."},
    {"counit", 88, Int16, "Coordinate units (1 = length in meters or feet, 2 = arc seconds)."},
    {"wevel", 90, Int16, "Weathering velocity."},
    {"swevel", 92, Int16, "Subweathering velocity."},
    {"sut", 94, Int16, "Uphole time at source."},
    {"gut", 96, Int16, "Uphole time at receiver group."},
    {"sstat", 98, Int16, "Source static correction."},
    {"gstat", 100, Int16, "Receiver group static correction."},
    {"tstat", 102, Int16, "Total static applied."},
    {"laga", 104, Int16, "Lag time between end of header and time break in milliseconds."},
    {"lagb", 106, Int16, "Lag time between time break and shot in milliseconds."},
    {"delrt", 108, Int16, "Lag time beteen shot and recording start in milliseconds."},
    {"muts", 110, Int16, "Start of mute time"},
    {"mute", 112, Int16, "End of mute time."},
    {"ns", 114, Int16, "Number of samples in this trace."},
    {"dt", 116, Int16, "Sample interval of this trace in microseconds."},
    {"gain", 118, Int16, "Field instrument gain type code:3=FPT,1=fixed"},
    {"igc", 120, Int16, "Instrument gain constant."},
    {"lgi", 122, Int16, "Intrument early gain in decibels."},
    {"corr", 124, Int16, "Correlated (1 = no, 2 = yes)."},
    {"sfs", 126, Int16, "Sweep frequency at start."},
    {"sfe", 128, Int16, "Sweep fequency at end."},
    {"slen", 130, Int16, "Sweep length in milliseconds."},
    {"styp", 132, Int16, "Sweep type code:"},
    {"stas", 134, Int16, "Sweep taper trace length at start in milliseconds."},
    {"stae", 136, Int16, "Sweep taper trace length at end in milliseconds."},
    {"tatyp", 138, Int16, "Taper type code:"},
    {"afilf", 140, Int16, "Alias filter frequency."},
    {"afils", 142, Int16, "Alias filter slope."},
    {"nofilf", 144, Int16, "Notch filter frequency."},
    {"nofils", 146, Int16, "Notch filter slope."},
    {"lcf", 148, Int16, "Low cut frequency."},
    {"hcf", 150, Int16, "High cut frequency."},
    {"lcs", 152, Int16, "Low cut slope."},
    {"hcs", 154, Int16, "High cut slope."},
    {"Year", 156, Int16, "Year data recorded."},
    {"Day", 158, Int16, "Day of year."},
    {"Hour", 160, Int16, "Hour of day (24-h clock)"},
    {"Minute", 162, Int16, "Minute of hour."},
    {"sec", 164, Int16, "Second of minute."},
    {"timbas", 166, Int16, "Time basis (1 = local, 2 = GMT, 3 = other)."},
    {"trwf", 168, Int16, "Trace weighting factor for fixed"},
    {"grnors", 170, Int16, "Geophone group number of roll switch position one."},
    {"grnofr", 172, Int16, "Geophone group number of first trace of original field record."},
    {"grnlof", 174, Int16, "Geophone group number of last trace of original field record."},
    {"gaps", 176, Int16, "Gap size (total number of groups dropped)."},
    {"otrav", 178, Int16, "Overtravel associated with taper (1 = down/behind, 2 = up/ahead)."},
    {"d1/fbp", 180, Float32, "sample spacing for non-seismic data"},
    {"f1", 184, Float32, "first sample location for non-seismic data"},
    {"d2", 188, Float32, "sample spacing between traces"},
    {"f2", 192, Float32, "first trace location"},
    {"ungpow", 196, Float32, "negative of power used for dynamic range compression"},
    {"unscale", 200, Float32, "reciprocal of scaling factor to normalize range"},
    {"ntr", 204, Float32, "number of traces"},
    {"mark", 208, Int16, "mark selected traces"},
    {"unmass", 210, Int16, "unassigned--NOTE: last entry causes"},
    {"Velocity1", 212, Int16, "Velocity 1"},
    {"Thick1", 214, Int16, "Thickness 1"},
    {"Velocity2", 216, Int16, "Velocity 2"},
    {"Thick2", 218, Int16, "Thickness 3"},
    {"Velocity3", 220, Int16, "Velocity 3"},
    {"First breaks", 222, Int16, "First break"},
    {"Thick3", 224, Int16, "Thick3"},
    {"Velocity4", 226, Int16, "Velocity4"},
    {"Shot St", 228, Int32, "Shot St"},
    {"Group St", 232, Int32, "Group St"},
}};

}  // namespace

const HeaderWord& Header_Word(int word) {
    if (word < 1 || word > header_words) throw Fault("no such header word");
    return table[static_cast<std::size_t>(word - 1)];
}

std::string Listed_Label(int word) {
    const HeaderWord& entry = Header_Word(word);
    // The list counts 75 twice; users refer to the words by what it shows.
    const int shown = word == 76 ? 75 : word;
    return CStr(shown) + "  " + entry.Label;
}

}  // namespace tarnvik
