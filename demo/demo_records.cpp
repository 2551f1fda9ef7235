#include "demo/demo_records.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>

#include "demo/demo_line.h"
#include "records/header_words.h"

namespace tarnvik {

namespace {

constexpr int samples = 500;
constexpr int interval = 250;  // microseconds
constexpr double sample_ms = interval / 1000.0;
constexpr int centimetres = -100;  // scale word: the values are divided by 100

constexpr double source_strength = 1e6;  // recorder counts at 1 m
constexpr double noise_counts = 60;      // root mean square
constexpr double ground_roll_velocity = 280;
constexpr std::uint32_t noise_seed = 20240521;

/// What a wave looks like behind its onset: a swing that starts upwards and dies away.
struct Wavelet {
    double Hertz;
    double Decay;  ///< ms
    double Strength;
};
constexpr Wavelet body_wave = {80, 9, 1};
constexpr Wavelet head_wave = {80, 9, 0.7};
constexpr Wavelet ground_roll = {22, 45, 1.5};

/// Noise of a field record: nearly normal, and the same on every machine (the library's distributions are
/// not).
class Noise {
  public:
    double Next() {
        constexpr int terms = 6;
        double sum = 0;
        for (int i = 0; i < terms; ++i)
            sum += static_cast<double>(Source()) / 4294967296.0 - 0.5;
        return sum * std::sqrt(12.0 / terms) * noise_counts;
    }

  private:
    std::mt19937 Source{noise_seed};
};

using Trace = std::array<double, samples>;

void Add_Wave(Trace& trace, const Wavelet& wavelet, double onset, double distance) {
    if (onset < 0) return;
    const double strength = source_strength * wavelet.Strength / std::max(distance, 1.0);
    for (int sample = 0; sample < samples; ++sample) {
        const double since = (sample + 1) * sample_ms - onset;  // sample n lies at n intervals
        if (since < 0) continue;
        trace.at(static_cast<std::size_t>(sample)) +=
            strength * std::sin(2 * std::numbers::pi * wavelet.Hertz * since / 1000) *
            std::exp(-since / wavelet.Decay);
    }
}

Trace Waves(const LayeredEarth& earth, SectionPoint shot, SectionPoint geophone) {
    Trace trace{};
    const double distance = std::hypot(geophone.X - shot.X, geophone.Z - shot.Z);
    Add_Wave(trace, body_wave, earth.Direct_Time(shot, geophone), distance);
    for (int layer = 1; layer < earth.Count(); ++layer)
        Add_Wave(trace, head_wave, earth.Head_Wave_Time(layer, shot, geophone), distance);
    Add_Wave(trace, ground_roll, distance / ground_roll_velocity * 1000, distance);
    return trace;
}

void Put(std::string& bytes, std::size_t place, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes.at(place + static_cast<std::size_t>(i)) = static_cast<char>(value >> (8 * i) & 0xFF);
}

class TraceHeader {
  public:
    void Set(int word, double value) {
        const HeaderWord& place = Header_Word(word);
        Put(Bytes, static_cast<std::size_t>(place.Offset),
            static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(value))),
            place.Type == WordType::Int16 ? 2 : 4);
    }
    const std::string& Text() const { return Bytes; }

  private:
    std::string Bytes = std::string(header_length, '\0');
};

/// Words that the program does not name, by their numbers.
constexpr int word_tracr = 2;
constexpr int word_gelev = 13;
constexpr int word_selev = 14;
constexpr int word_scalel = 20;
constexpr int word_scalco = 21;
constexpr int word_sx = 22;
constexpr int word_gx = 24;
constexpr int word_counit = 26;

std::string Header_Of(const Project& project, int shot, int geophone, bool dead) {
    const double from = project.ShotDistance(shot);
    const double to = project.ReceiverData(ReceiverDistance, geophone);
    TraceHeader header;
    header.Set(words::tracl, geophone);
    header.Set(word_tracr, (shot - 1) * project.NbReceivers + geophone);
    header.Set(words::fldr, shot);
    header.Set(words::tracf, geophone);
    header.Set(words::ep, shot);
    header.Set(words::trid, dead ? dead_trace : live_trace);
    header.Set(words::offset, to - from);
    header.Set(word_gelev, 100.0 * project.ReceiverData(ReceiverElevation, geophone));
    header.Set(word_selev, 100 * project.ShotElevation(shot));
    header.Set(word_scalel, centimetres);
    header.Set(word_scalco, centimetres);
    header.Set(word_sx, 100 * from);
    header.Set(word_gx, 100 * to);
    header.Set(word_counit, 1);
    header.Set(words::ns, samples);
    header.Set(words::dt, interval);
    return header.Text();
}

}  // namespace

std::string Demo_Records(const Project& project) {
    const LayeredEarth earth = Demo_Earth();
    Noise noise;
    std::string file;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
            const bool dead = shot == demo_line::dead_shot && geophone == demo_line::dead_geophone;
            const bool reversed =
                shot == demo_line::reversed_shot && geophone == demo_line::reversed_geophone;
            file += Header_Of(project, shot, geophone, dead);
            const Trace waves = Waves(earth, Shot_Point(project, shot), Geophone_Point(project, geophone));
            for (const double wave : waves) {
                const double counts = (dead ? 0 : wave) * (reversed ? -1 : 1) + noise.Next();
                // Whole counts, as a recorder gives them: no machine's last binary digit shows.
                file.append(4, '\0');
                Put(file, file.size() - 4,
                    std::bit_cast<std::uint32_t>(static_cast<float>(std::round(counts))), 4);
            }
        }
    }
    return file;
}

}  // namespace tarnvik
