#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/mark.h"
#include "core/ports/picture.h"

namespace tarnvik {

/// The pictures of the program, by the names of their controls.
enum class Canvas {
    Dromo,      ///< travel-time curves
    EchelleX,   ///< scale strip under them
    EchelleY,   ///< scale strip beside them
    Dromo2,     ///< the curves in the second window
    Dromo1,     ///< seismic profile
    EchelleY1,  ///< its elevation scale
    Ecran,      ///< field record
    Echelle3,   ///< its time scale
    /// Its title, receivers and distances, above it.
    RecordHeader,
    Magnifier,   ///< a few traces around the pointer, enlarged
    Regle,       ///< floating ruler strip
    Profile2,    ///< sketch of the spread of a new profile
    Sketch,      ///< small sketch of the line
    SpeedEnd,    ///< Picture2 of SpeedF
    Section,     ///< coloured velocity section, or the section page of a report
    SectionX,    ///< its distance scale, under it
    SectionZ,    ///< its elevation scale, beside it
    SectionCut,  ///< velocity against depth at the pointer
};

/// The dialogs of the program, by the names of their forms.
enum class Dialog {
    frmSplash,
    rechinfo,
    SpeedF,
    SpeedF2,  ///< true velocity of two shots
    SpeedF3,  ///< velocity of a band drawn by hand
    confirm,
    vELINE,
    dip,
    FantomF,
    quick_interpret,
    Theoric_F,
    Erase_TT,
    Fcalcul,
    DelayF,
    ABCGridF,
    GRM,
    GRM_depth,
    resu,  ///< result table
    Zoom,
    RulerF,
    Travel_Time_2,
    AutoPik,
    History,  ///< list of the edits, to walk along
    Keys,     ///< list of keys and gestures
    PictureExport,
    Header,       ///< header editor of SU files
    rezize,       ///< shorter records, other sampling, fewer channels
    Conversion,   ///< seismograph files to SU
    Update_FLDR,  ///< numbers of records and traces of recorders that write them badly
};

/// What can be printed or saved as a picture, each with the scale strips that belong to it.
enum class Page { Curves, Profile, Record, Section };

/// How a picture file is made. Drawings (.svg, .pdf, .wmf) have the size that the pixels have at the
/// resolution.
struct PictureFormat {
    int Width = 1200;  ///< pixels
    int Height = 750;
    double Dpi = 96;          ///< pixels an inch: texts and lines keep their size on paper
    bool TitleBlock = false;  ///< name of the line, date and scale under the picture

    static constexpr double millimetres_an_inch = 25.4;
    double Width_In_Millimetres() const { return Width / Dpi * millimetres_an_inch; }
    double Height_In_Millimetres() const { return Height / Dpi * millimetres_an_inch; }
};

/// The tabs of the main form (SSTab1).
enum class Tab { Record = 0, Tables = 1, Curves = 2, Section = 3 };

/// What logic may ask of the screen. A redraw is done at once, but inside an edit at its end, and then only
/// once however often it was asked for; without a screen it is done on pictures in memory or not at all.
class Display {
  public:
    virtual ~Display() = default;

    virtual Picture& Canvas_Of(Canvas canvas) = 0;
    /// Puts marks on top of a picture in the place of those that the layer had; none takes them away. The
    /// picture itself is not touched.
    virtual void Show_Marks(Canvas canvas, MarkLayer layer, std::vector<Mark> marks) = 0;

    virtual void Show_Curves() = 0;     ///< travel-time curves, full redraw
    virtual void Display_Record() = 0;  ///< field record, full redraw
    virtual void Show_Profile() = 0;    ///< seismic profile that stands; asks and corrects nothing
    virtual void Show_Grids() = 0;      ///< Buildgrid, Grille_Shot, remark_grid, size_grid changed
    /// One cell of Buildgrid changed, row and column counted from 0 with the headings.
    virtual void Show_Cell(int row, int column) = 0;
    virtual void Show_Fields() = 0;  ///< texts and ticks of the main form or of an open dialog changed

    /// Paints what stands on a page once more: nothing is measured, asked or corrected.
    virtual void Repaint_Page(Page page) = 0;
    /// Until Release, requests are only remembered; then each of them is done once.
    virtual void Hold_Redraws() = 0;
    virtual void Release_Redraws() = 0;

    virtual void Select_Tab(Tab tab) = 0;
    /// The tab in sight; nothing without a window.
    virtual std::optional<Tab> Tab_In_Sight() const { return std::nullopt; }
    /// The dialog that has the keyboard; nothing while the main window has it, and without a window.
    virtual std::optional<Dialog> Dialog_In_Front() const { return std::nullopt; }
    /// Opens a dialog; a modal one returns when it is closed.
    virtual void Open_Dialog(Dialog dialog, bool modal) = 0;
    virtual void Close_Dialog(Dialog dialog) = 0;
    virtual void Bring_To_Front(Dialog dialog) = 0;
    virtual bool Is_Open(Dialog dialog) const = 0;

    /// Prints a page by the same drawing routine as the screen, after the printer dialog; false when there is
    /// no printer or nothing that can be printed.
    virtual bool Print_Page(Page page) = 0;
    /// Writes a page to a file whose ending tells the kind (.png, .jpg, .bmp, .svg, .pdf, .wmf). Answers
    /// the reason of a failure, empty when it went well.
    virtual std::string Save_Page(Page page, const std::string& path, const PictureFormat& format) = 0;
    /// Puts a page onto the clipboard, as a bitmap and as a drawing. Answers the reason of a failure, empty
    /// when it went well.
    virtual std::string Copy_Page(Page, const PictureFormat&) { return "there is no clipboard"; }
    virtual void Choose_Printer() = 0;
    /// Closes all windows and ends the program's event loop; no question is asked any more.
    virtual void End_Program() = 0;
};

}  // namespace tarnvik
