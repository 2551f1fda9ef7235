#pragma once

#include <array>
#include <string>

namespace tarnvik {

/// The paper of a sheet, as a form has it.
struct PaperChoice {
    struct Size {
        const char* Name;
        double Short;  ///< mm
        double Long;
    };
    static constexpr std::array sizes = {Size{"A4", 210, 297},        Size{"A3", 297, 420},
                                         Size{"A2", 420, 594},        Size{"A1", 594, 841},
                                         Size{"A0", 841, 1189},       Size{"Letter", 215.9, 279.4},
                                         Size{"Legal", 215.9, 355.6}, Size{"Own size", 0, 0}};
    static constexpr int own_size = static_cast<int>(sizes.size()) - 1;

    int Choice = 0;  ///< position in sizes
    bool Upright = false;
    std::string OwnWidth = "600";  ///< mm
    std::string OwnHeight = "297";

    /// mm; of a size of one's own as typed, whatever Upright is.
    double Width() const;
    double Height() const;
    /// Why no sheet can have this size; empty where it can.
    std::string Fault() const;

    /// As one line of text, and back; a text that is none changes nothing.
    std::string Text() const;
    void Take(const std::string& text);
};

}  // namespace tarnvik
