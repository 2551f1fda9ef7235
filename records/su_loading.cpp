#include "records/su_loading.h"

#include <algorithm>
#include <utility>

#include "core/files.h"
#include "core/ports/held_redraws.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/record_choice.h"
#include "records/record_files.h"
#include "records/set_pick.h"

namespace tarnvik {

namespace {

constexpr std::size_t longest_path = 90;
constexpr double long_recording = 0.5;  // seconds

/// Takes a quotient into a 16-bit count; a division by zero or a result too large leaves it as it was.
void Store_Quotient(std::int16_t& target, double dividend, double divisor) {
    if (divisor != 0) Store_If_It_Fits(target, dividend / divisor);
}

/// What the loading of another file changes, to put it back when the user gives up.
struct Former {
    explicit Former(const Workspace& workspace)
        : SuFile(workspace.Project.SuFile),
          CurrentFile(workspace.Project.CurrentFile),
          Record(workspace.Record),
          TraceSizes(workspace.Grids.size_grid) {}
    void Put_Back(Workspace& workspace) const {
        workspace.Project.SuFile = SuFile;
        workspace.Project.CurrentFile = CurrentFile;
        workspace.Record = Record;
        workspace.Grids.size_grid = TraceSizes;
    }
    std::string SuFile;
    std::string CurrentFile;
    RecordView Record;
    TextGrid TraceSizes;
};

/// A path the user chose and that can be used; empty when he gave up.
std::string Choose_SU_File(Workspace& workspace, Ports& ports) {
    for (;;) {
        const std::string path = ports.Ask.Open_File(
            {"Load ", "Seismic Unix (SU)|*.SU|All files|*.*|", "*.SU", workspace.Project.ProjectDir});
        if (path.empty()) return path;
        const std::string refusal = Path_Refusal(path);
        if (refusal.empty()) return path;
        ports.Ask.Say(refusal, workspace.AppTitle, Icon::Critical);
        if (To_Windows_1252(path).size() > longest_path) return {};
        if (!ports.Ask.Ask_Yes(refusal, "Search another SU file location ?) ")) return {};
    }
}

/// Project file that belongs to an SU file. Never the SU file itself, whatever its name ends in: it would be
/// overwritten by the project.
std::string Project_File_Of(const std::string& su_file) {
    const std::string derived = Derived_File(su_file, ".su", ".TV5");
    return derived == su_file ? su_file + ".TV5" : derived;
}

/// Asks for records and channels, which go to the view. False when the user gave up.
bool Ask_For_Channels(Workspace& workspace, Ports& ports) {
    RecordView& view = workspace.Record;
    const double records =
        Val(ports.Ask.Input("Enter the total number of records for your spread", workspace.AppTitle, "5"));
    if (records < 1) return false;
    Store_Quotient(view.ChannelsPerRecord, view.NbTraces, records);
    const double channels =
        Val(ports.Ask.Input("Enter the number of channel for each record (must be constant)",
                            workspace.AppTitle, CStr(int{view.ChannelsPerRecord})));
    Store_If_It_Fits(view.ChannelsPerRecord, channels);
    return channels != 0 && view.ChannelsPerRecord >= 1;
}

/// Where the stored file and one of the same name beside the project are both there the user says which one
/// is meant, once in a session.
void Choose_Of_Two(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    const std::string beside = Su_File_Beside(project);
    if (beside.empty() || !File_Exists(project.SuFile)) return;
    std::string& chosen = workspace.Record.ChosenFile[{project.CurrentFile, project.SuFile}];
    if (chosen.empty()) {
        const bool take =
            ports.Ask.Ask_Yes("The project names the field records " + project.SuFile +
                                  ". A file of the same name lies beside the project: " + beside +
                                  ". Take the one beside the project ?",
                              workspace.AppTitle);
        chosen = take ? beside : project.SuFile;
    }
    if (project.SuFile == chosen) return;
    project.SuFile = chosen;
    // What the opening settles is no unsaved work and no step of the history.
    const Edits& edits = workspace.Edits;
    if (edits.All().empty() && !edits.Is_Open()) workspace.Edits.Start(project, edits.Is_Saved());
}

/// Counts, twin and first record of the project's file.
void Take_Up_Records(Workspace& workspace) {
    const std::string path = Su_Path(workspace.Project);
    Start_With_SU_File(workspace, path);
    Scan_Channels(workspace, path);
}

/// First letter of a UTF-8 text whose Windows-1252 form says something else; empty when there is none.
std::string First_Foreign_Letter(const std::string& text) {
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = start + 1;
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
            ++end;
        std::string letter = text.substr(start, end - start);
        if (From_Windows_1252(To_Windows_1252(letter)) != letter) return letter;
        start = end;
    }
    return {};
}

}  // namespace

std::int16_t Channels_Per_Record(SuTraces& file, std::int32_t traces) {
    std::int16_t channels = 0;
    std::int16_t first = 0;
    std::int16_t channel = 0;
    for (std::int32_t trace = 1; trace <= traces; ++trace) {
        const auto read = file.Channel(trace);
        if (!read) break;  // the rest of the count has no header in the file
        channel = *read;
        if (trace == 1) first = channel;
        channels = std::max(channels, channel);
        if (channel == first && trace == 5) return 0;
        if (channel < channels) break;
    }
    return channels;
}

bool Scan_Channels(Workspace& workspace, const std::string& path) {
    RecordView& view = workspace.Record;
    if (!Recherche_Nb_Trace(view, path)) return false;
    SuTraces file(path);
    view.ChannelsPerRecord = Channels_Per_Record(file, view.NbTraces);
    Store_Quotient(view.NbRecords, view.NbTraces, view.ChannelsPerRecord);
    view.Record = view.Shot = 1;
    view.FirstTrace = view.WholeFirst = 1;
    view.LastTrace = view.WholeLast = view.ChannelsPerRecord;
    return true;
}

void Start_With_SU_File(Workspace& workspace, const std::string& path) {
    RecordView& view = workspace.Record;
    constexpr std::string_view filtered = "_flt.su";
    view.TwinSuFile =
        LCase(Right(path, filtered.size())) == filtered ? Derived_File(path, filtered, ".su") : std::string();
    Recherche_Nb_Trace(view, path);
    SuTraces file(path);
    if (const auto delay = file.Word(1, words::delrt)) {
        Store_If_It_Fits(view.RecordDelay, *delay < 0 ? -*delay : *delay);
    }
    view.FirstSample = 1;
    Store_If_It_Fits(view.LastSample, view.NbSamples);
    view.ZoomMode = 0;
    view.TraceScale = 0;
    view.StationsTyped.clear();
    view.LastStations.reset();
    workspace.Grids.size_grid.Clear();
}

void Open_Records(Workspace& workspace, Ports& ports) {
    if (!File_Exists(Su_Path(workspace.Project))) {
        Close_Records(workspace, ports);
        return;
    }
    Take_Up_Records(workspace);
    ports.Show.Display_Record();
    ports.Show.Show_Fields();
}

void Close_Records(Workspace& workspace, Ports& ports) {
    RecordView& view = workspace.Record;
    RecordView none;
    // How records are drawn and picked outlives the file.
    none.Style = view.Style;
    none.AmplitudeGain = view.AmplitudeGain;
    none.DisplayPolarity = view.DisplayPolarity;
    none.ClipAmplitude = view.ClipAmplitude;
    none.EqualiseTraces = view.EqualiseTraces;
    none.Overdraw = view.Overdraw;
    none.ShowTravelTimes = view.ShowTravelTimes;
    none.CurveOnRecord = view.CurveOnRecord;
    none.SeveralSpreads = view.SeveralSpreads;
    none.DirectionInverted = view.DirectionInverted;
    none.ReverseOnClick = view.ReverseOnClick;
    none.PickTimeShift = view.PickTimeShift;
    none.AutoPickMode = view.AutoPickMode;
    none.ChosenFile = std::move(view.ChosenFile);
    view = std::move(none);
    workspace.Grids.size_grid.Clear();
    workspace.Fields.RecordReadout.clear();
    workspace.Fields.Label16 = workspace.Project.SuFile;
    ports.Show.Canvas_Of(Canvas::Ecran).Clear();
    ports.Show.Canvas_Of(Canvas::Echelle3).Clear();
    ports.Show.Show_Fields();
}

std::string Path_Refusal(const std::string& path) {
    const std::string letters = To_Windows_1252(path);
    if (letters.size() > longest_path) return path + " path is too long";
    const std::string foreign = First_Foreign_Letter(path);
    if (!foreign.empty()) {
        return path + " contains invalid caracter *" + foreign +
               "* ASCII:" + CStr(int{static_cast<unsigned char>('?')});
    }
    for (const char letter : letters) {
        const int code = static_cast<unsigned char>(letter);
        if (code >= 45 && code < 171) continue;
        return path + " contains invalid caracter *" + From_Windows_1252({&letter, 1}) +
               "* ASCII:" + CStr(code);
    }
    return {};
}

bool Load_SU_File(Workspace& workspace, Ports& ports) {
    const std::string path = Choose_SU_File(workspace, ports);
    if (path.empty()) return false;
    const Former former(workspace);
    RecordView& view = workspace.Record;
    Start_With_SU_File(workspace, path);

    if (view.NbSamples / 1000.0 * view.SampleInterval / 1000.0 > long_recording &&
        ports.Ask.Ask_Yes("The recording time > 0.5 sec, it is probably not necessary, modify in UTILITY ?",
                          workspace.AppTitle)) {
        ports.Ask.Say("SU files cannot be resized in this version. The file is loaded as it is.",
                      workspace.AppTitle, Icon::Information);
    }

    bool trusted = false;
    {
        SuTraces file(path);
        const double channel = file.Word_Or_Zero(1, words::tracf);
        trusted = file.Word_Or_Zero(1, words::fldr) != 0 && channel < 2 &&
                  channel != file.Word_Or_Zero(2, words::tracf);
    }
    if (!trusted && !Ask_For_Channels(workspace, ports)) {
        former.Put_Back(workspace);
        return false;
    }
    EditScope edit(workspace, "Load " + Name_Of(path));
    workspace.Project.SuFile = path;
    workspace.Project.CurrentFile = Project_File_Of(path);
    if (!trusted) {
        const std::string reason = Renumber_Traces(workspace, view.NbTraces, view.ChannelsPerRecord);
        if (!reason.empty()) {
            edit.Give_Up();
            former.Put_Back(workspace);
            ports.Ask.Say(path + " cannot be written: " + reason, workspace.AppTitle, Icon::Critical);
            return false;
        }
    }
    // Whoever is told of the edit takes the records up already; they are drawn once, with their stations.
    const HeldRedraws held(ports.Show);
    view.ChannelsPerRecord = 0;
    edit.End();
    if (view.ChannelsPerRecord == 0) Scan_Channels(workspace, path);
    Ask_Stations(workspace, ports);
    ports.Show.Show_Fields();
    ports.Show.Display_Record();
    return true;
}

bool Load_SU_File_Of_Project(Workspace& workspace, Ports& ports) {
    // Under the name derived from the SU file the project would be written over another one.
    const std::string project_file = workspace.Project.CurrentFile;
    const bool loaded = Load_SU_File(workspace, ports);
    if (!project_file.empty()) workspace.Project.CurrentFile = project_file;
    return loaded;
}

bool Locate_SU_File(Workspace& workspace, Ports& ports) {
    if (File_Exists(Su_Path(workspace.Project))) return true;
    if (!ports.Ask.Ask_Yes(" Do you want to locate " + workspace.Project.SuFile, workspace.AppTitle)) {
        return false;
    }
    return Load_SU_File_Of_Project(workspace, ports);
}

void Offer_SU_File(Workspace& workspace, Ports& ports) {
    if (workspace.Project.SuFile.empty()) return;
    Choose_Of_Two(workspace, ports);
    if (!File_Exists(Su_Path(workspace.Project))) {
        Locate_SU_File(workspace, ports);
        return;
    }
    Take_Up_Records(workspace);
}

std::string Renumber_Traces(Workspace& workspace, std::int32_t traces, std::int32_t channels) {
    const EditScope edit(workspace, "Number the traces");
    RecordFiles files(workspace);
    if (!files.Is_Open()) return files.Traces().Reason();
    std::int32_t record = 1;
    std::int32_t channel = 1;
    for (std::int32_t trace = 1; trace <= traces; ++trace) {
        if (!files.Set_Record_And_Channel(trace, record, channel)) return files.First_Fault();
        if (++channel > channels) {
            channel = 1;
            ++record;
        }
    }
    return {};
}

void Grid_2_SU(Workspace& workspace, Ports& ports) {
    if (!Locate_SU_File(workspace, ports)) return;
    const Project& project = workspace.Project;
    const EditScope edit(workspace, "Picks of the table into the SU headers");
    PickSetter picks(workspace);
    bool saved = picks.Files().Is_Open();
    for (int shot = 1; shot <= project.NbShots && picks.Files().Is_Open(); ++shot) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const auto trace = picks.Layout().Trace_Of({shot, receiver});
            if (!trace || !project.ShotTimes.Has(shot, receiver)) continue;
            const double ms = Val(Format(project.ShotTimes(shot, receiver), "###0.00"));
            saved &= picks.Files().Set_Word(*trace, words::First_Breaks, ms * 10);
        }
    }
    if (!saved) {
        const std::string reason =
            picks.Files().Failed() ? picks.Files().First_Fault() : picks.Files().Traces().Reason();
        ports.Ask.Say(project.SuFile + " cannot be written: " + reason, workspace.AppTitle, Icon::Critical);
    }
}

void Load_FBP_From_SU_Header(Workspace& workspace, Ports& ports) {
    if (ports.Ask.Message("FBP values of the grid will be replaced by FBP from SU Header", workspace.AppTitle,
                          Icon::Question, Buttons::OkCancel) != Answer::Ok) {
        return;
    }
    if (!Locate_SU_File(workspace, ports)) return;
    const EditScope edit(workspace, "Load FBP from SU header");
    PickSetter picks(workspace);
    Take_Header_Picks(picks);
}

}  // namespace tarnvik
