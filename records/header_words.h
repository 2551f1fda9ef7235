#pragma once

#include <string>

namespace tarnvik {

/// How a header word is kept in the file; all little-endian, integers signed.
enum class WordType { Int16, Int32, Float32 };

/// One word of the 240-byte trace header.
struct HeaderWord {
    const char* Name;
    int Offset;  ///< bytes from the start of the trace
    WordType Type;
    const char* Label;  ///< as the user sees it
};

inline constexpr int header_words = 90;
inline constexpr int header_length = 240;  ///< bytes; the last four belong to no word

/// Word 1 to 90; any other number is a Fault.
const HeaderWord& Header_Word(int word);

/// Entry of the word in the list beside the editing fields: its number and its label.
std::string Listed_Label(int word);

/// Numbers of the words that the program itself works with.
namespace words {
inline constexpr int tracl = 1;  ///< geophone station
inline constexpr int tracr = 2;
inline constexpr int fldr = 3;   ///< field record number
inline constexpr int tracf = 4;  ///< channel within the record, from 1
inline constexpr int ep = 5;     ///< shot station
inline constexpr int cdp = 6;    ///< ensemble that a trace belongs to
inline constexpr int trid = 8;   ///< 1 live, 2 dead
inline constexpr int nvs = 9;    ///< shots added up in the instrument
inline constexpr int nhs = 10;   ///< number of traces added to this one
inline constexpr int offset = 12;
inline constexpr int gelev = 13;
inline constexpr int selev = 14;
inline constexpr int sdepth = 15;
inline constexpr int scalel = 20;  ///< of elevations and depths: above 0 a factor, below 0 a divisor
inline constexpr int scalco = 21;  ///< of coordinates, likewise
inline constexpr int sx = 22;
inline constexpr int sy = 23;
inline constexpr int gx = 24;
inline constexpr int gy = 25;
inline constexpr int counit = 26;  ///< 1 length, others angles
inline constexpr int wevel = 27;   ///< velocity of the weathered layer
inline constexpr int swevel = 28;  ///< and of the one below
inline constexpr int delrt = 36;   ///< ms between shot and start of the recording
inline constexpr int ns = 39;
inline constexpr int dt = 40;     ///< microseconds
inline constexpr int gain = 41;   ///< 1 fixed
inline constexpr int igc = 42;    ///< gain, dB
inline constexpr int afilf = 52;  ///< filters of the instrument: corner (Hz) and slope (dB per octave)
inline constexpr int afils = 53;
inline constexpr int nofilf = 54;
inline constexpr int lcf = 56;
inline constexpr int hcf = 57;
inline constexpr int lcs = 58;
inline constexpr int hcs = 59;
inline constexpr int Year = 60;  ///< of the recording, then day of the year and time of the day
inline constexpr int Day = 61;
inline constexpr int Hour = 62;
inline constexpr int Minute = 63;
inline constexpr int sec = 64;
inline constexpr int First_Breaks = 86;  ///< pick in tenths of a millisecond, 0 none
}  // namespace words

inline constexpr int live_trace = 1;
inline constexpr int dead_trace = 2;

}  // namespace tarnvik
