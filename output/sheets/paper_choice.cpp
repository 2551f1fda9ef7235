#include "output/sheets/paper_choice.h"

#include <algorithm>

#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr double least = 50;
constexpr double most = 5000;

}  // namespace

double PaperChoice::Width() const {
    if (Choice == own_size) return Val(OwnWidth);
    const Size& size = sizes[static_cast<std::size_t>(Choice)];
    return Upright ? size.Short : size.Long;
}

double PaperChoice::Height() const {
    if (Choice == own_size) return Val(OwnHeight);
    const Size& size = sizes[static_cast<std::size_t>(Choice)];
    return Upright ? size.Long : size.Short;
}

std::string PaperChoice::Fault() const {
    const auto [low, high] = std::minmax({Width(), Height()});
    if (low >= least && high <= most) return {};
    return "Width and height of the paper must be " + CStr(least) + " to " + CStr(most) + " mm";
}

std::string PaperChoice::Text() const {
    return CStr(Choice) + " " + (Upright ? "1" : "0") + " " + CStr(Val(OwnWidth)) + " " +
           CStr(Val(OwnHeight));
}

void PaperChoice::Take(const std::string& text) {
    std::array<double, 4> values{};
    std::size_t at = 0;
    for (double& value : values) {
        if (at >= text.size()) return;
        value = Val(text.substr(at));
        at = std::min(text.find(' ', at), text.size() - 1) + 1;
    }
    if (values[0] < 0 || values[0] > own_size) return;
    Choice = static_cast<int>(values[0]);
    Upright = values[1] != 0;
    OwnWidth = CStr(values[2]);
    OwnHeight = CStr(values[3]);
}

}  // namespace tarnvik
