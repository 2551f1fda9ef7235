#include "records/su_loading.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/files.h"
#include "core/ports/held_redraws.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/record_choice.h"
#include "records/record_files.h"
#include "records/renumbering.h"
#include "records/set_pick.h"
#include "records/su_check.h"

namespace tarnvik {

namespace {

constexpr std::size_t longest_path = 90;
constexpr double long_recording = 0.5;  // seconds

/// Takes a quotient into a 16-bit count; a division by zero or a result too large leaves it as it was.
void Store_Quotient(std::int16_t& target, double dividend, double divisor) {
    if (divisor != 0) Store_If_It_Fits(target, dividend / divisor);
}

/// The channels of a record; the first record is shown.
void Set_Channels(RecordView& view, std::int16_t channels) {
    view.ChannelsPerRecord = channels;
    Store_Quotient(view.NbRecords, view.NbTraces, channels);
    view.Record = view.Shot = 1;
    view.FirstTrace = view.WholeFirst = 1;
    view.LastTrace = view.WholeLast = channels;
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

/// A file that the conversion takes.
bool Is_Foreign(const SuCheck& check) {
    return check.Is == SuCheck::Kind::SegY || check.Is == SuCheck::Kind::Seg2;
}

/// A path the user chose and that can be used; empty when he gave up.
std::string Choose_SU_File(Workspace& workspace, Ports& ports) {
    for (;;) {
        const std::string path = ports.Ask.Open_File(
            {"Load ", "Seismic Unix (SU)|*.SU|All files|*.*|", "*.SU", workspace.Project.ProjectDir});
        if (path.empty()) return path;
        const std::string refusal = Path_Refusal(path);
        if (refusal.empty()) return path;
        // What is converted first may have any name.
        if (workspace.Convert && Is_Foreign(Check_Su_File(path))) return path;
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

/// The file to load: the one chosen, or a shorter one that the user has made of it instead. Empty when he
/// gave up.
std::string Of_Wanted_Length(Workspace& workspace, Ports& ports, const std::string& path) {
    {
        const SuTraces file(path);
        if (file.Nb_Samples() / 1000.0 * file.Sample_Interval() / 1000.0 <= long_recording) return path;
    }
    if (!ports.Ask.Ask_Yes("The recording time > 0.5 sec, it is probably not necessary, modify in UTILITY ?",
                           workspace.AppTitle)) {
        return path;
    }
    const std::string made = workspace.Resize ? workspace.Resize(path) : std::string();
    if (made.empty()) return path;
    const Answer answer = ports.Ask.Message(
        "Load " + made + " in the place of " + Name_Of(path) + " ?\r\nNo loads the file as it was chosen.",
        workspace.AppTitle, Icon::Question, Buttons::YesNoCancel);
    if (answer == Answer::Yes) return made;
    return answer == Answer::No ? path : std::string();
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

/// Where a little-endian copy of a big-endian file was written; empty when the user gave up.
std::string Turned_Copy(Workspace& workspace, Ports& ports, const std::string& path, const SuCheck& check) {
    if (!ports.Ask.Ask_Yes(check.Message(path) +
                               "\r\nWrite a copy in the right byte order and open that one ? The file itself "
                               "stays as it is.",
                           workspace.AppTitle, Icon::Warning)) {
        return {};
    }
    const std::string copy =
        ports.Ask.Save_File({"Copy in the right byte order", "Seismic Unix (SU)|*.su|",
                             Derived_File(Name_Of(path), ".su", "_le.su"), Folder_Of(path)});
    if (copy.empty()) return {};
    std::string reason = Path_Refusal(copy);
    const auto bytes = Read_File(path);
    if (reason.empty() && copy == path) reason = "it is the file to be copied";
    if (reason.empty() && !bytes) reason = path + " cannot be read";
    if (reason.empty()) reason = Replace_File(copy, Turned_Round(*bytes));
    if (reason.empty()) return copy;
    ports.Ask.Say(copy + " cannot be written: " + reason, workspace.AppTitle, Icon::Critical);
    return {};
}

/// Records and channels of the untrusted headers of `path` as they would be numbered.
std::array<NumberedWord, 2> Numbers_From_One(std::int16_t channels) {
    return {
        NumberedWord{words::fldr, [channels](std::int32_t trace) { return (trace - 1) / channels + 1; }},
        NumberedWord{words::tracf, [channels](std::int32_t trace) { return (trace - 1) % channels + 1; }}};
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
    Set_Channels(view, Channels_Per_Record(file, view.NbTraces));
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
    view.PickedTrace = 0;
    view.TraceScale = 0;
    view.TraceSizes.clear();
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

void Reopen_Records(Workspace& workspace, Ports& ports) {
    RecordView& view = workspace.Record;
    const std::string path = Su_Path(workspace.Project);
    if (view.NbTraces < 1 || !File_Exists(path)) {
        Open_Records(workspace, ports);
        return;
    }
    const std::int32_t record = view.Record;
    const std::int16_t channels = view.ChannelsPerRecord;
    const std::int32_t traces = view.NbTraces;
    const std::int32_t samples = view.NbSamples;
    Recherche_Nb_Trace(view, path);
    if (view.NbTraces != traces || view.NbSamples != samples) {
        Take_Up_Records(workspace);
        // Headers that do not tell the channels were explained by the user.
        if (view.ChannelsPerRecord < 1 && channels > 0) Set_Channels(view, channels);
        if (view.NbRecords > 0) Select_Record(workspace, std::clamp<std::int32_t>(record, 1, view.NbRecords));
    }
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
    none.EqualiseInSight = view.EqualiseInSight;
    none.AgcWindow = view.AgcWindow;
    none.CrossHair = view.CrossHair;
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
    ports.Show.Canvas_Of(Canvas::RecordHeader).Clear();
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

std::string Checked_SU_File(Workspace& workspace, Ports& ports, const std::string& path) {
    const SuCheck check = Check_Su_File(path);
    if (check.Good()) return path;
    if (check.Is == SuCheck::Kind::BigEndian) {
        const std::string copy = Turned_Copy(workspace, ports, path, check);
        return copy.empty() ? copy : Checked_SU_File(workspace, ports, copy);
    }
    if (Is_Foreign(check) && workspace.Convert) {
        const std::string made = workspace.Convert(path);
        return made.empty() ? made : Checked_SU_File(workspace, ports, made);
    }
    if (check.Refused()) {
        ports.Ask.Say(check.Message(path), workspace.AppTitle, Icon::Critical);
        return {};
    }
    const Answer answer =
        ports.Ask.Message(check.Message(path), workspace.AppTitle, Icon::Warning, Buttons::OpenCancel);
    return answer == Answer::Ok ? path : std::string();
}

bool Load_SU_File(Workspace& workspace, Ports& ports) {
    const std::string path = Choose_SU_File(workspace, ports);
    return !path.empty() && Load_Chosen_SU_File(workspace, ports, path);
}

bool Load_Chosen_SU_File(Workspace& workspace, Ports& ports, const std::string& chosen) {
    const std::string path = Checked_SU_File(workspace, ports, chosen);
    if (path.empty()) return false;
    const std::string wanted = Of_Wanted_Length(workspace, ports, path);
    if (wanted != path) return !wanted.empty() && Load_Chosen_SU_File(workspace, ports, wanted);
    const Former former(workspace);
    RecordView& view = workspace.Record;
    Start_With_SU_File(workspace, path);

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
    const std::int16_t channels = view.ChannelsPerRecord;
    const Numbering numbering =
        trusted ? Numbering::Keep
                : Ask_For_Numbering(workspace, ports, path, view.NbTraces, Numbers_From_One(channels));
    if (numbering == Numbering::GiveUp) {
        former.Put_Back(workspace);
        return false;
    }
    EditScope edit(workspace, "Load " + Name_Of(path));
    workspace.Project.SuFile = path;
    workspace.Project.CurrentFile = Project_File_Of(path);
    if (numbering == Numbering::Renumber) {
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
    // Headers that were kept do not tell what the user did.
    if (!trusted && numbering == Numbering::Keep) Set_Channels(view, channels);
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
    // A file that is no SU file any more is told; the project is opened all the same.
    const std::string path = Su_Path(workspace.Project);
    const SuCheck check = Check_Su_File(path);
    if (check.Refused()) ports.Ask.Say(check.Message(path), workspace.AppTitle, Icon::Warning);
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
