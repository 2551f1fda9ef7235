#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "processing/filters/spectrum.h"

namespace tarnvik {

/// Spectra of a stretch of some traces of an SU file.
class SpectrumOfTraces {
  public:
    /// What the curves show, by its place in the list.
    enum Quantity { Linear = 0, Decibel = 1, Phase = 2 };
    static constexpr int most_traces = 200;
    static constexpr double lowest_decibel = -80;  ///< below the peak of the mean

    /// `settings_file` remembers how it is shown; empty where nothing is remembered.
    SpectrumOfTraces(Ports& ports, std::string title, std::string settings_file);

    // Fields.
    std::string File;
    std::string FirstTrace = "1", LastTrace;    ///< from 1, both count
    std::string FirstSample = "1", LastSample;  ///< likewise
    int Shown = Linear;
    int Window = static_cast<int>(Taper::Ends);
    bool LogFrequency = false;
    bool EachTrace = true;  ///< thin, beside the mean
    std::string Hint;       ///< what was computed, or why not
    std::string Result;     ///< peak and band

    /// Takes "f=FILE ftr=N ltr=N fpt=N lpt=N"; the file's name may hold blanks, what is not told is that end
    /// of the file. A text without "f=" is a file's name.
    void Take_Arguments(const std::string& line);
    /// Takes up a file with all of its first record.
    void Take_Up(const std::string& path);
    void Ask_For_File();
    /// After a field was typed or chosen.
    void Compute();
    void Save_Numbers();
    void Close();

    bool Has_Result() const { return !Each.empty(); }
    std::int64_t First() const { return FirstRead; }
    const std::vector<Spectrum>& Spectra() const { return Each; }
    const Spectrum& Mean_Spectrum() const { return Mean; }
    StrongBand Band() const { return Strong_Band(Mean); }
    /// Values of a spectrum as they are shown: in the samples' unit, dB against the peak of the mean, or
    /// degrees.
    std::vector<double> Values(const Spectrum& spectrum) const;
    /// Lines of frequency; mean amplitude; mean dB; phase of the sum; then the amplitude of each trace.
    std::string Numbers() const;

  private:
    void Read();

    Ports& Outside;
    std::string Title;
    std::string SettingsFile;
    std::int64_t FirstRead = 1;
    std::vector<Spectrum> Each;
    Spectrum Mean;
};

}  // namespace tarnvik
