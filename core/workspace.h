#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/awaited_field.h"
#include "core/display_choices.h"
#include "core/display_mode.h"
#include "core/edits/edits.h"
#include "core/pick_place.h"
#include "core/ports/mark.h"
#include "core/project.h"
#include "core/settings.h"

namespace tarnvik {

class Picture;

/// Position of a scroll bar.
struct ScrollBar {
    int Value = 0;
    int Min = 0;
    int Max = 0;
};

/// A line that stands on the travel-time picture in XOR, in world units; drawn once more it is gone.
struct DrawnBand {
    bool Stands = false;
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    Colour InColour = 0;
};

/// The velocity cross that stands on the travel-time picture in XOR, likewise: its centre, the half width and
/// the rise of its two legs.
struct DrawnCross {
    bool Stands = false;
    double X = 0;
    double Y = 0;
    double HalfWidth = 0;
    double Rise1 = 0;
    double Rise2 = 0;
};

/// A shot's number beside its curve, as it was put on a travel-time picture: world places of its top left and
/// bottom right corner, and the point that it belongs to.
struct CurveLabel {
    int Shot = 0;
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    double PointX = 0;
    double PointY = 0;
    bool Leader = false;  ///< pushed so far from its point that a line leads there
    Colour InColour = 0;
    bool operator==(const CurveLabel&) const = default;
};

/// A line fitted to a stretch of a curve: picture units across the line, and ms.
struct FittedLine {
    int Shot = 0;
    int Layer = 0;  ///< 0 while none is named
    double X1 = 0;
    double T1 = 0;
    double X2 = 0;
    double T2 = 0;
    std::optional<double> ShotX;  ///< it goes on from there at time 0
};

/// What a dialog adds to the travel-time curves while it is open. Either part may be missing.
struct CurveOverlay {
    /// Drawn over the curves with every painting of them, on each device. The scale of the curves is in
    /// force.
    std::function<void(Picture&)> Standing;
    /// What moves under the hand: marks on the screen, so that nothing is drawn again, and drawn on paper.
    std::function<std::vector<Mark>()> Moving;
};

/// State of the travel-time picture, shared with the dialogs that work on it.
struct CurveView {
    double TimeFactor = 1;       ///< ms per unit of the picture's height
    double DrawnTimeFactor = 0;  ///< of the frame that was drawn last
    double MaxTime = 0;          ///< latest pick, ms
    double PickFactor = 1;       ///< ms per unit as the pointer reads them
    double ZoomX = 1;
    double ZoomY = 1;
    ScrollBar HScroll1;
    ScrollBar VScroll1;
    bool ExactWindow = false;  ///< enlarged at the pointer: the window is not rounded to whole units
    double PartX = 0;          ///< what the window's left edge has beyond the bar's whole number
    double PartY = 0;
    std::int16_t FrameDrawn = 0;  ///< 1 the frame stands, 2 curves and profile stand together
    std::int16_t DoubleView = 0;  ///< 1 while the second window is open
    bool ZeroOnTop = false;       ///< menu mark Zerop
    bool ShowReceiverIntercepts = false;
    bool LeadInStrokes = false;      ///< every curve rises from (0, 0)
    std::set<int> ShotsLeftOut;      ///< shots that Grille_Shot leaves out of the curves, from 1
    int ShotAlone = 0;               ///< the one shot that a dialog shows, in red; 0 while all are shown
    int ShotBeside = 0;              ///< another one that is shown with it, in red too
    bool DistinctColours = false;    ///< a colour of its own for each of a dozen shots
    PickPlace Lit;                   ///< pick under the pointer, its curve is lit; shot 0 while there is none
    std::vector<CurveLabel> Labels;  ///< shots' numbers on the picture
    std::vector<CurveLabel> Labels2;          ///< and in the second window
    std::vector<FittedLine> Fitted;           ///< lines of the dialog that is open
    std::map<Dialog, CurveOverlay> Overlays;  ///< of the dialogs that are open
    std::int16_t LastLabelledShot = 0;
    Colour LastColour = 0;  ///< of the curve drawn last; a shot without a colour rule takes it over

    double MouseDistance = 0;
    std::int16_t MouseReceiver = 0;
    std::int16_t MouseTime = 0;
    std::int16_t DownDistance = 0;
    std::int16_t DownTime = 0;
    std::int16_t DragStartX = 0;  ///< rubber band in world units; 0 means no drag
    std::int16_t DragStartY = 0;
    std::int16_t DragEndX = 0;
    std::int16_t DragEndY = 0;
    double DownX = 0;
    double DownY = 0;

    std::int16_t PickMoving = 0;
    std::int16_t PickShot = 0;
    std::int16_t PickReceiver = 0;
    double RulerX = 0;
    double RulerY = 0;
    double RulerStep = 1;
    bool RulerShown = false;
    double CrossVelocity1 = 0;  ///< velocities of the velocity cross, from Text4 and Text5 of vELINE
    double CrossVelocity2 = 0;
    DrawnBand Band;
    DrawnCross Cross;
};

/// Working values that the picture, the velocity dialogs and the depth dialog hand to each other.
struct VelocityWork {
    std::int16_t CurrentShot = 1;
    std::int16_t ShotSide = 0;  ///< 1 side A, 24 side B, 36 both
    double VelocityResult = 0;
    double InterceptResult = 0;
    double Correlation = 0;
    std::optional<AwaitedField> Awaited;  ///< field that awaits a value from the picture
    std::string QuickStatus;              ///< status label of quick_interpret
};

/// Working values of the depth computations, kept from one shot and one dialog to the next. Elements count
/// from 1.
struct DepthWork {
    using PerLayer = std::array<double, Project::MaxLayers + 1>;
    using PerRefractor = std::array<double, Project::MaxRefractors + 1>;
    using LayerMatrix = std::array<PerLayer, Project::MaxLayers + 1>;

    int NbLayers = 0;      ///< in use for the shot
    PerLayer TrueV{};      ///< true layer velocities
    PerRefractor Thick{};  ///< layer thicknesses
    PerRefractor IT{};     ///< mean intercept times, seconds
    PerRefractor CD{};     ///< mean critical distances
    double HalfShotDepth = 0;
    LayerMatrix
        AngleCritique{};  ///< (i, j) critical angle in radians at the top of layer i of the ray in layer j
    LayerMatrix
        RetardCouche{};  ///< (i, j) two-way delay in s of layer j for the refractor at the top of layer i
    bool VelocityFault = false;  ///< a velocity order was wrong
};

/// One point of a GRM curve: a receiver and its value, ms.
struct GrmPoint {
    int Receiver = 0;
    double Value = 0;
    bool operator==(const GrmPoint&) const = default;
};

/// The points of one XY, in the order of the receivers.
struct GrmCurve {
    int XY = 0;  ///< receivers
    std::vector<GrmPoint> Points;
};

/// State of the generalised reciprocal method.
struct GrmView {
    std::int16_t GrmXY = 0;                 ///< chosen by the user, in receivers; 0 while none is
    DisplayMode Drawn = DisplayMode::None;  ///< Grm or GrmV while curves were computed
    std::vector<GrmCurve> Curves;
    double CurveStep = 0;  ///< units of the picture from one curve up to the next
};

/// Where the depths and velocities of a section come from.
enum class SectionSource { Shots, Abc, Grm };

/// Shape of an interface between the places where its depth is known.
enum class SectionLine { Linear, Bezier };

/// Velocities below the ground on a regular grid, and what it was made of. Columns count from 1 along the
/// line. Rows are counted from the top in TopoRows and in Corners, and from the bottom, 1 being the lowest,
/// in VelocityGrid: a row of either is as many quarters of a length unit high as its number tells.
struct SectionGrid {
    SectionSource Source = SectionSource::Shots;
    int GridColumns = 0;
    int GridRows = 0;
    double MaxElevation = 0;
    double MinElevation = 0;
    Array2<double> VelocityGrid;  ///< (column, row) at the interfaces alone; 0 where none is
    Array2<double> Filled;        ///< (column, row) downward from the ground; 0 above it
    std::vector<int> TopoRows;    ///< ground row of column 0 to GridColumns; 0 where unknown
    std::vector<std::array<std::string, Project::MaxLayers + 1>>
        GridCorners;              ///< "column,row" of the interfaces, by place
    std::vector<double> Factors;  ///< by which the slope lengthens the depths, by place
};

/// The main depth label of a source: what the user reads and chooses it by.
std::string_view Depth_Label(SectionSource source);

/// Colours of a section: those of the file in Text19, or of a scale of the program's own.
enum class SectionColours { File, Even, ColourBlind };

/// Part of a section in sight: distances and elevations.
struct SectionWindow {
    double Left = 0;
    double Right = 0;
    double Bottom = 0;
    double Top = 0;
    bool operator==(const SectionWindow&) const = default;
};

/// How a section is made and looked at.
struct SectionView {
    // Made of.
    SectionSource Source = SectionSource::Shots;  ///< as the main depth label tells
    int GridQuality = 1;                          ///< 1 normal to 3 highest
    bool Smoothing = false;                       ///< Check12: the bedrock is a mean of three values
    bool SlopeCorrection = false;                 ///< slope: depths at right angles to the ground
    SectionLine Line = SectionLine::Linear;
    int SmoothingFactor = 1;  ///< places that a running mean of the interfaces takes; 1 for none
    // Drawn with.
    bool ShowShots = true;      ///< Check13
    bool ShowGeophones = true;  ///< Check14
    bool ShowScale = true;      ///< Check15: legend of the velocities
    double MaxVelocity = 5000;  ///< Text28: of the colour scale
    double LabelScale = 1;      ///< Text31: of the labels' letters
    SectionColours Colours = SectionColours::File;
    std::optional<SectionWindow> Enlarged;  ///< nothing while the whole section is in sight
    std::optional<double> CutAt;            ///< distance of the velocity-depth cut beside it
    std::optional<SectionGrid> Grid;        ///< nothing before the first one
};

/// State of the profile picture.
struct ProfileView {
    DisplayMode DrawnMode = DisplayMode::None;  ///< mode of the last drawing
    std::optional<double> GivenMaxElevation;    ///< answered or typed by the user
    std::optional<double> GivenMinElevation;
    double ProfileMaxElevation = 0;
    double ProfileMinElevation = 0;
    std::int16_t ProfileVFactor = 1;
    double ProfileVScale = 1;
    double ZoomX = 1;  ///< enlargement of what stands, and how far it is scrolled, in enlarged units
    double ZoomY = 1;
    double Across = 0;
    double Up = 0;
    bool ExactWindow = false;  ///< enlarged at the pointer: the window is not rounded to whole units
};

/// Stations that the user gave a record when he was asked for them.
struct RecordStations {
    double Shot = 0;
    double FirstGeophone = 0;
    bool InHeader = false;  ///< the record's header holds them too, and counts
};

/// What a pick goes to when it is snapped, in the order of the choice.
enum class SnapTo { Onset, ZeroCrossing, Peak, Trough };

/// Picking on the record by keys, and what is shown beside the picks.
struct PickingView {
    bool Active = false;     ///< the cursor shows: keys have been used
    std::int32_t Trace = 0;  ///< active trace of the file, 0 before the first use
    double Sample = 0;       ///< time cursor, in samples
    SnapTo Feature = SnapTo::Onset;
    bool SnapEvery = false;   ///< every pick of mouse and keys is snapped
    bool NextRecord = false;  ///< the pick of a record's last trace brings the next record
    bool Neighbours = true;   ///< line through the picks of the record
    bool Reciprocal = false;  ///< times expected from the shots at the other end
    bool ShotBefore = false;  ///< picks of the same offset in the shot before
    bool Magnifier = false;
    std::int32_t MagnifiedTrace = 0;  ///< place that it shows
    double MagnifiedSample = 0;
    bool Painting = false;  ///< a drag of the left button sets the picks along it
};

/// State of the field-record display and of what is read from the SU file.
struct RecordView {
    std::int16_t SamplesWord = 0;
    std::int32_t NbSamples = 0;
    std::int16_t SampleInterval = 0;  ///< microseconds
    std::int16_t RecordDelay = 0;     ///< ms
    std::int32_t NbTraces = 0;
    std::int16_t ChannelsPerRecord = 0;
    std::int16_t NbRecords = 0;
    std::string TwinSuFile;
    std::map<int, RecordStations> StationsTyped;  ///< by record number; each record is asked for once
    std::optional<RecordStations> LastStations;   ///< entered last, offered next
    /// Where the project names one file and one of the same name lies beside it: the user's choice, by the
    /// project's file and the name that it holds.
    std::map<std::pair<std::string, std::string>, std::string> ChosenFile;

    // What is shown.
    std::int32_t Record = 1;  ///< its number in the file
    std::int16_t Shot = 1;    ///< shot that it stands for: CurrentShot when it was chosen
    std::int32_t FirstTrace = 1;
    std::int32_t LastTrace = 24;
    std::int32_t WholeFirst = 1;  ///< traces shown without an enlargement
    std::int32_t WholeLast = 24;
    std::int16_t FirstSample = 0;
    std::int16_t LastSample = 0;
    double FieldRecord = 0;    ///< `fldr` of the first trace shown
    double ShotStation = 1;    ///< `ep` of the first trace shown
    double FirstGeophone = 1;  ///< `tracl` of the first trace shown

    // How it is drawn.
    int Style = 0;  ///< index of the list of styles
    double AmplitudeGain = 1;
    std::int16_t DisplayPolarity = 1;
    bool ClipAmplitude = false;
    bool EqualiseTraces = false;
    bool EqualiseInSight = false;    ///< by the samples shown, of either sign, and not by the whole trace
    double AgcWindow = 0;            ///< ms over which amplitudes are levelled on the picture; 0 for none
    bool CrossHair = true;           ///< lines through the pointer
    bool Overdraw = false;           ///< the next record is drawn over this one
    bool ShowTravelTimes = false;    ///< curves of the other shots over the traces
    std::int32_t CurveOnRecord = 0;  ///< shot whose curve that is; below 1 all
    std::int16_t SampleStep = 1;
    double RecordWidth = 0;  ///< world width of what was drawn last, 0 while nothing is on screen
    float ScaleLeft = 0;
    float ScaleRight = 0;
    double TraceScale = 0;                  ///< amplitude scale of the record drawn last, 0 before the first
    std::string TakenUp;                    ///< records and project whose display choices are in force
    std::map<int, std::string> TraceSizes;  ///< size factors by the trace's place in its record, from 0
    std::vector<std::int16_t> TracesDrawn;  ///< `trid` of the traces in the picture, from FirstTrace

    // What a click means.
    bool SeveralSpreads = false;     ///< "Multi spead profile"
    bool DirectionInverted = false;  ///< channels count from the record's last trace
    bool ReverseOnClick = false;     ///< a click turns the polarity of the trace
    double PickTimeShift = 0;        ///< ms added to every click
    PickingView Picking;
    std::int16_t ZoomMode = 0;
    std::int16_t SpectrumRequest = 0;
    std::int16_t AutoPickMode = 0;  ///< -1 while AutoPik is open
    double DownX = 0;
    double DownY = 0;
    std::int32_t ReferenceTrace = 0;
    std::int32_t PickedTrace = 0;  ///< trace of the file that was clicked last, 0 before the first click
};

/// Texts, ticks and choices of the main form that logic reads or writes, by the names of their controls.
struct MainFields {
    std::string Caption;
    std::string Text1;            ///< status field: pointer read-out
    std::string Text19;           ///< colour scale file
    std::string Text23;           ///< added to the first depth below the receivers
    std::string Text25;           ///< TotalTime
    std::string Label16;          ///< path of the SU file
    std::string FirstTabCaption;  ///< path of the project file on the first tab
    std::string Status;           ///< status label: zoom range, time shift, faults to be seen
    std::string RecordReadout;    ///< time and trace under the pointer of ecran
    std::string ProfileReadout;   ///< X and Z under the pointer of the profile
    bool Check11 = true;          ///< Display all shot
    bool SideBySide = false;      ///< record and curves stand beside each other
    bool DarkWindows = false;     ///< windows are dark whatever the desktop is
};

/// Grids of the main form beside the project's own remark_grid.
struct MainGrids {
    TextGrid Buildgrid;
    TextGrid Grille_Shot;  ///< one row a shot, column 0; red where CurveView leaves the shot out
    TextGrid size_grid;    ///< one row a displayed trace
};

/// The project and all run-time values that several dialogs share. One object, handed around by reference;
/// nobody copies it and nobody keeps a second truth.
struct Workspace {
    tarnvik::Project Project;
    tarnvik::Edits Edits;  ///< the door for all changes by the user's hand
    tarnvik::Settings Settings;
    DisplayChoices Choices;  ///< how each project is looked at
    /// Where the program keeps small files about projects; empty while none are kept.
    std::string CompanionFolder;
    std::string AppTitle = "Tarnvik 16.5";
    PictureMode Mode;  ///< what the Dromo picture shows and what a press on it means
    /// The file that the project in memory was read from or written to, or whose replacement the user agreed
    /// to; CurrentFile may name another one.
    std::string FileOnDisk;
    bool NoOffsetShots = true;  ///< set to false by a file with offset shots; never set back
    std::string
        BackedUpBeforeRemoval;  ///< project file copied to its backup before its first shot was removed
    CurveView Curves;
    VelocityWork Velocity;
    DepthWork Depth;
    GrmView Grm;
    ProfileView Profile;
    SectionView Section;
    RecordView Record;
    MainFields Fields;
    MainGrids Grids;
    /// Lets the user make a shorter SU file of one that he is loading; answers that file, empty when he made
    /// none. What does it stands above whoever loads.
    std::function<std::string(const std::string& su_file)> Resize;
    /// Lets the user make an SU file of a seismograph's file that he is loading, likewise. Empty where nobody
    /// can be asked.
    std::function<std::string(const std::string& field_file)> Convert;
};

/// Forgets what is marked on the Dromo picture; nothing is redrawn.
void Clear_Selection(CurveView& curves);

/// Finds MaxTime and TimeFactor of the project in memory.
void Scale_Time_Grid(Workspace& workspace);

/// Place of a receiver on the travel-time picture (0..96 across the line) from its distance. A line of length
/// 0 is a Fault.
double Position_Ecran(const Project& project, int receiver);

/// The same for a shot; outside 0..96 for an offset shot.
double Shot_Position_Ecran(const Project& project, int shot);

}  // namespace tarnvik
