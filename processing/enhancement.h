#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "processing/filters/filter_traces.h"
#include "processing/filters/spectrum.h"
#include "processing/trace_count.h"

namespace tarnvik {

/// "SU enhancement": filters of an SU file that are tried on one record and then applied to the whole of it.
/// The result is a file of its own; the headers, and so the picks, are those of the input.
class Enhancement {
  public:
    /// `settings_file` remembers the choices; empty where nothing is remembered.
    Enhancement(Ports& ports, std::string title, std::string settings_file);
    ~Enhancement();
    Enhancement(const Enhancement&) = delete;
    Enhancement& operator=(const Enhancement&) = delete;

    // Fields.
    std::string Input;
    std::string Output;
    bool RemoveMean = false;
    bool RemoveDrift = false;
    bool NotchOn = false;
    std::string HumHertz = "50";
    std::string Harmonics = "3";
    bool BandOn = true;
    int Preset = 0;                          ///< index of Presets, behind them the corners as typed
    std::vector<std::string> PresetEntries;  ///< names, "As typed" at the end
    std::string F1, F2, F3, F4;              ///< Hz
    bool MuteOn = false;
    std::string MuteMs = "5";
    bool AgcOn = false;
    std::string AgcMs = "50";
    bool Balance = false;
    bool Reverse = false;
    std::string FirstReversed, LastReversed;  ///< traces; both empty: all that are filtered
    std::string FirstTrace, LastTrace;        ///< filtered; both empty: all
    std::int32_t Record = 1;                  ///< shown, from 1
    int Style = 0;                            ///< RecordStyle
    bool EqualiseTraces = true;
    std::string Hint;  ///< why the choices cannot be used, or what the record in sight is

    /// Takes up an SU file, or the SU file of a project; tells why it cannot be used. Of a filtered file the
    /// user may take the original that it was made of.
    void Take_Up(const std::string& path);
    void Ask_For_Input();
    void Ask_For_Output();
    void Input_Typed();
    void Preset_Chosen();
    void Corner_Typed();
    /// Another choice or record: filters the record in sight anew.
    void Update();
    int Nb_Records() const;
    void Larger();
    void Smaller();

    bool Has_Input() const { return !Taken.empty(); }
    bool Can_Write() const { return Has_Input() && Usable; }
    /// Filters the whole file to Output, after a question where that is there. True when it was written.
    bool Write(const TraceProgress& progress);
    void Close();

    /// The record in sight on three pictures: as it is, filtered, and its time scale. Blank without a file.
    void Draw_Before(Picture& picture) { Draw(picture, *Original); }
    void Draw_After(Picture& picture) { Draw(picture, *Result); }
    void Draw_Scale(Picture& picture);
    /// Mean amplitude spectra of the record, of up to `spectrum_traces` of its traces.
    const Spectrum& Spectrum_Before() const { return OriginalSpectrum; }
    const Spectrum& Spectrum_After() const { return ResultSpectrum; }
    static constexpr int spectrum_traces = 24;

    /// The choices as they are typed; nothing with a Hint where a number is missing.
    std::optional<FilterRequest> Request();

  private:
    class RecordCopy;
    FilterRequest Typed_Request() const;
    std::vector<std::pair<const char*, bool*>> Ticks();
    std::vector<std::pair<const char*, std::string*>> Texts();
    void Remember();
    void Recall();
    void Offer_Presets();
    void Show_Corners(const BandPass& band);
    void Read_Record();
    void Filter_Record();
    void Draw(Picture& picture, const RecordCopy& copy);
    bool Set_Picture(const Picture& picture, const RecordCopy& copy);
    Spectrum Mean_Spectrum(const std::string& bytes) const;
    std::int64_t First_Of_Record() const;
    bool May_Write_Output();

    Ports& Outside;
    std::string Title;
    std::string SettingsFile;
    Workspace View;  ///< of the copies of the record in sight; a file of one record each
    std::string Taken;
    int Samples = 0;
    int Interval = 0;  ///< microseconds
    std::int64_t NbTraces = 0;
    std::int64_t TracesPerRecord = 0;
    std::int32_t RecordRead = 0;
    std::string RecordBytes;
    std::vector<BandPreset> Presets;
    std::string PresetName = "First breaks";
    std::unique_ptr<RecordCopy> Original;
    std::unique_ptr<RecordCopy> Result;
    Spectrum OriginalSpectrum;
    Spectrum ResultSpectrum;
    bool Usable = false;
    std::string Agreed;  ///< output whose replacement the file dialog has asked for
};

}  // namespace tarnvik
