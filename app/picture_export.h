#pragma once

#include <array>
#include <string>

#include "core/ports/display.h"

namespace tarnvik {

class Session;

/// A size of paper or screen that the dialog offers.
struct PictureSize {
    const char* Name;
    double Width;
    double Height;
    bool Millimetres;
};

/// The dialog that saves a picture: which one, how large, with a title block or without. The choices are
/// remembered in the settings file, not in the project.
class PictureExport {
  public:
    explicit PictureExport(Session& session) : Program(session) {}

    int Choice = 0;  ///< position in Pages
    int Size = 0;    ///< position in Sizes; the last one is the user's own
    std::string Width = "1200";
    std::string Height = "750";
    bool Millimetres = false;  ///< Width and Height are millimetres instead of pixels
    std::string Dpi = "96";
    bool TitleBlock = false;
    std::string Outcome;  ///< what becomes of it, or what is wrong with it

    /// The pictures by their place in the list.
    static constexpr std::array pages = {Page::Curves, Page::Profile, Page::Record, Page::Section};
    static constexpr std::array sizes = {PictureSize{"Screen, 1200 x 750 pixels", 1200, 750, false},
                                         PictureSize{"Screen, 1920 x 1080 pixels", 1920, 1080, false},
                                         PictureSize{"A4, landscape", 297, 210, true},
                                         PictureSize{"A4, upright", 210, 297, true},
                                         PictureSize{"A3, landscape", 420, 297, true},
                                         PictureSize{"Letter, landscape", 279.4, 215.9, true},
                                         PictureSize{"Own size", 0, 0, false}};

    /// Opens the dialog for the picture in sight with the choices of the last time.
    void Open();
    void Size_Chosen();   ///< Width, Height and the unit are those of the size
    void Unit_Changed();  ///< Width and Height are told in the other unit
    void Typed();         ///< Width, Height or Dpi: another size is the user's own
    void Picture_Chosen();
    /// Asks for the file, which the file dialog asks about when it is there, and writes it. The dialog closes
    /// when it went well.
    void Save();
    void Cancel();

    /// The picture in sight that can be saved.
    Page In_Sight() const;
    /// Size and resolution of the last time, for a picture that is made without the dialog.
    PictureFormat Usual_Format();

    /// Why the picture cannot be made so, in words; empty when it can.
    std::string Refusal() const;
    PictureFormat Format() const;
    Page Chosen() const { return pages[static_cast<std::size_t>(Choice)]; }

  private:
    double Typed_Width() const;
    double Typed_Height() const;
    double Pixels_Of(double value) const;
    void Tell_Outcome();
    bool Resolution_Is_Possible() const;
    bool Size_Is_Possible() const;
    void Recall();
    void Remember(const std::string& ending);

    Session& Program;
    std::string Ending = ".png";
};

}  // namespace tarnvik
