#include "core/metafile.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "core/text/letters.h"

namespace tarnvik {

namespace {

// Functions of the records.
constexpr std::uint16_t end_of_file = 0x0000;
constexpr std::uint16_t save_state = 0x001E;
constexpr std::uint16_t set_background_mode = 0x0102;
constexpr std::uint16_t set_map_mode = 0x0103;
constexpr std::uint16_t set_fill_mode = 0x0106;
constexpr std::uint16_t restore_state = 0x0127;
constexpr std::uint16_t select_object = 0x012D;
constexpr std::uint16_t set_text_align = 0x012E;
constexpr std::uint16_t delete_object = 0x01F0;
constexpr std::uint16_t set_text_colour = 0x0209;
constexpr std::uint16_t set_window_origin = 0x020B;
constexpr std::uint16_t set_window_extent = 0x020C;
constexpr std::uint16_t line_to = 0x0213;
constexpr std::uint16_t move_to = 0x0214;
constexpr std::uint16_t make_pen = 0x02FA;
constexpr std::uint16_t make_font = 0x02FB;
constexpr std::uint16_t make_brush = 0x02FC;
constexpr std::uint16_t draw_polygon = 0x0324;
constexpr std::uint16_t draw_polyline = 0x0325;
constexpr std::uint16_t clip_to_box = 0x0416;
constexpr std::uint16_t draw_ellipse = 0x0418;
constexpr std::uint16_t draw_rectangle = 0x041B;
constexpr std::uint16_t draw_polygons = 0x0538;
constexpr std::uint16_t draw_text = 0x0A32;

constexpr int transparent_background = 1;
constexpr int scale_both_axes = 8;
constexpr int fill_alternate = 1;
constexpr int fill_winding = 2;
constexpr int align_base_line = 24;
constexpr int solid = 0;
constexpr int no_pen = 5;
constexpr int no_brush = 1;
constexpr int usual_weight = 400;
constexpr int bold_weight = 700;
constexpr int variable_pitch_without_serifs = 0x22;
constexpr std::size_t longest_family = 31;

constexpr std::uint32_t placeable_key = 0x9AC6CDD7;
constexpr int header_words = 9;
constexpr int format_version = 0x0300;
// Each object costs the reader a handle; Windows 3 had few of them.
constexpr std::size_t most_objects = 128;
// Points of one figure that every reader draws.
constexpr std::size_t most_points = 8000;

int To_16_Bits(int value) {
    return std::clamp(value, -32768, 32767);
}

void Append_Word(std::string& bytes, int word) {
    bytes += static_cast<char>(word & 0xFF);
    bytes += static_cast<char>((word >> 8) & 0xFF);
}

void Append_Long(std::string& bytes, std::uint32_t value) {
    Append_Word(bytes, static_cast<int>(value & 0xFFFF));
    Append_Word(bytes, static_cast<int>(value >> 16));
}

void Append_Colour(std::string& bytes, Colour colour) {
    Append_Long(bytes, static_cast<std::uint32_t>(colour) & 0xFFFFFF);
}

void Append_Points(std::string& bytes, std::span<const MetaPoint> points) {
    for (const MetaPoint& point : points) {
        Append_Word(bytes, To_16_Bits(point.X));
        Append_Word(bytes, To_16_Bits(point.Y));
    }
}

std::string Object(std::uint16_t function, const std::string& parameters) {
    std::string record;
    Append_Word(record, function);
    return record + parameters;
}

std::string Pen_Object(const std::optional<MetaPen>& pen) {
    std::string bytes;
    Append_Word(bytes, pen ? solid : no_pen);
    Append_Word(bytes, pen ? std::clamp(pen->Width, 1, 32767) : 0);
    Append_Word(bytes, 0);
    Append_Colour(bytes, pen ? pen->Ink : 0);
    return Object(make_pen, bytes);
}

std::string Brush_Object(const std::optional<Colour>& colour) {
    std::string bytes;
    Append_Word(bytes, colour ? solid : no_brush);
    Append_Colour(bytes, colour.value_or(0));
    Append_Word(bytes, 0);
    return Object(make_brush, bytes);
}

std::string Font_Object(const MetaFont& font) {
    std::string bytes;
    Append_Word(bytes, -std::clamp(font.Height, 1, 32767));
    Append_Word(bytes, 0);
    Append_Word(bytes, To_16_Bits(font.TenthDegrees));
    Append_Word(bytes, To_16_Bits(font.TenthDegrees));
    Append_Word(bytes, font.Bold ? bold_weight : usual_weight);
    Append_Word(bytes, font.Italic ? 1 : 0);  // not underlined
    Append_Word(bytes, 0);                    // not struck out, letters of Windows-1252
    Append_Word(bytes, 0);                    // precision of place and clip: the reader's
    Append_Word(bytes, variable_pitch_without_serifs << 8);
    bytes += To_Windows_1252(font.Family).substr(0, longest_family);
    bytes += '\0';
    if (bytes.size() % 2 != 0) bytes += '\0';
    return Object(make_font, bytes);
}

MetaBox Around(std::span<const MetaPoint> points) {
    MetaBox box{points[0].X, points[0].Y, points[0].X, points[0].Y};
    for (const MetaPoint& point : points) {
        box.Left = std::min(box.Left, point.X);
        box.Top = std::min(box.Top, point.Y);
        box.Right = std::max(box.Right, point.X);
        box.Bottom = std::max(box.Bottom, point.Y);
    }
    return box;
}

/// Points that differ after rounding. Of a figure with too many every so many'th is left.
std::vector<MetaPoint> Thinned(std::span<const MetaPoint> points) {
    std::vector<MetaPoint> kept(points.begin(), points.end());
    kept.erase(std::unique(kept.begin(), kept.end()), kept.end());
    if (kept.size() <= most_points) return kept;
    const std::size_t step = (kept.size() + most_points - 1) / most_points;
    std::vector<MetaPoint> fewer;
    for (std::size_t at = 0; at < kept.size(); at += step)
        fewer.push_back(kept[at]);
    return fewer;
}

}  // namespace

int Metafile::Density_For(double width_inches, double height_inches) {
    const double longest = std::max({width_inches, height_inches, 0.01});
    return static_cast<int>(
        std::clamp(std::floor(longest_side / longest), 1.0, static_cast<double>(most_units_an_inch)));
}

Metafile::Metafile(int width, int height, int units_an_inch)
    : Width(std::clamp(width, 1, longest_side)),
      Height(std::clamp(height, 1, longest_side)),
      Density(std::clamp(units_an_inch, 1, most_units_an_inch)) {
    Add_Words(set_map_mode, {scale_both_axes});
    Add_Words(set_window_origin, {0, 0});
    Add_Words(set_window_extent, {Height, Width});
    Add_Words(save_state, {});
    Set_Pen(MetaPen());
    Set_Brush(std::nullopt);
    Set_Font({.Family = "Arial", .Height = Density / 9});
}

void Metafile::Add(std::uint16_t function, std::string_view parameters) {
    const auto words = static_cast<std::uint32_t>(3 + parameters.size() / 2);
    Append_Long(Records, words);
    Append_Word(Records, function);
    Records += parameters;
    LongestRecord = std::max(LongestRecord, words);
}

void Metafile::Add_Words(std::uint16_t function, std::initializer_list<int> words) {
    std::string parameters;
    for (const int word : words)
        Append_Word(parameters, To_16_Bits(word));
    Add(function, parameters);
}

void Metafile::Set_Pen(const std::optional<MetaPen>& pen) {
    Wanted[Pen] = Pen_Object(pen);
    PenWidth = pen ? pen->Width : 0;
}

void Metafile::Set_Brush(const std::optional<Colour>& colour) {
    Wanted[Brush] = Brush_Object(colour);
}

void Metafile::Set_Font(const MetaFont& font) {
    Wanted[Font] = Font_Object(font);
    FontHeight = font.Height;
    Turned = font.TenthDegrees != 0;
}

void Metafile::Set_Text_Colour(Colour colour) {
    TextColour = colour;
}

void Metafile::Set_Clip(const std::optional<MetaBox>& clip) {
    Clip = clip;
    const bool all =
        Clip && Clip->Left <= 0 && Clip->Top <= 0 && Clip->Right >= Width && Clip->Bottom >= Height;
    if (all) Clip.reset();
}

/// Sets the clip for a figure that reaches so far; one that lies within it needs none. A clip can only be
/// made smaller, so the state before it comes back first, and all else with it.
void Metafile::Take_Clip(const MetaBox& reach) {
    if (Clip == ClipSet) return;
    const bool within = !Clip || (reach.Left >= Clip->Left && reach.Top >= Clip->Top &&
                                  reach.Right <= Clip->Right && reach.Bottom <= Clip->Bottom);
    if (within && !ClipSet) return;
    const std::optional<MetaBox> needed = within ? std::nullopt : Clip;
    Add_Words(restore_state, {-1});
    Add_Words(save_state, {});
    for (auto& selected : Selected)
        selected.reset();
    TextColourSet.reset();
    WindingSet.reset();
    TextWaySet = false;
    if (needed) Add_Words(clip_to_box, {needed->Bottom, needed->Right, needed->Top, needed->Left});
    ClipSet = needed;
}

std::size_t Metafile::Room_For_An_Object() {
    // A reader puts a new object into the first free slot.
    if (Slots.size() < most_objects) {
        Slots.emplace_back();
        return Slots.size() - 1;
    }
    std::size_t oldest = Slots.size();
    for (std::size_t slot = 0; slot < Slots.size(); ++slot) {
        // An object in use must not be deleted.
        if (std::find(std::begin(Selected), std::end(Selected), slot) != std::end(Selected)) continue;
        if (oldest == Slots.size() || Slots[slot].LastUse < Slots[oldest].LastUse) oldest = slot;
    }
    Add_Words(delete_object, {static_cast<int>(oldest)});
    SlotOf.erase(Slots[oldest].Record);
    return oldest;
}

void Metafile::Take(Kind kind) {
    const std::string& record = Wanted[kind];
    auto found = SlotOf.find(record);
    if (found == SlotOf.end()) {
        const std::size_t slot = Room_For_An_Object();
        const auto function = static_cast<std::uint16_t>(static_cast<unsigned char>(record[0]) |
                                                         static_cast<unsigned char>(record[1]) << 8);
        Add(function, std::string_view(record).substr(2));
        Slots[slot].Record = record;
        found = SlotOf.emplace(record, slot).first;
    }
    Slots[found->second].LastUse = ++Uses;
    if (Selected[kind] == found->second) return;
    Add_Words(select_object, {static_cast<int>(found->second)});
    Selected[kind] = found->second;
}

MetaBox Metafile::With_Pen(MetaBox box) const {
    const int room = (PenWidth + 1) / 2;
    return {box.Left - room, box.Top - room, box.Right + room, box.Bottom + room};
}

void Metafile::Take_Pen_And_Brush(const MetaBox& reach) {
    Take_Clip(reach);
    Take(Pen);
    Take(Brush);
}

void Metafile::Polyline(std::span<const MetaPoint> points) {
    if (points.size() < 2) return;
    Take_Clip(With_Pen(Around(points)));
    Take(Pen);
    if (points.size() == 2) {
        // Not as a polyline: of two points some readers draw none.
        Add_Words(move_to, {points[0].Y, points[0].X});
        Add_Words(line_to, {points[1].Y, points[1].X});
        return;
    }
    for (std::size_t at = 0; at + 1 < points.size(); at += most_points - 1) {
        const auto part = points.subspan(at, std::min(most_points, points.size() - at));
        std::string parameters;
        Append_Word(parameters, static_cast<int>(part.size()));
        Append_Points(parameters, part);
        Add(draw_polyline, parameters);
    }
}

void Metafile::Polygons(std::span<const std::vector<MetaPoint>> figures, bool winding) {
    std::vector<std::vector<MetaPoint>> kept;
    std::vector<MetaPoint> all;
    for (const auto& figure : figures) {
        kept.push_back(Thinned(figure));
        if (kept.back().size() < 2) {
            kept.pop_back();
        } else {
            all.insert(all.end(), kept.back().begin(), kept.back().end());
        }
    }
    if (kept.empty()) return;
    Take_Pen_And_Brush(With_Pen(Around(all)));
    if (WindingSet != winding) Add_Words(set_fill_mode, {winding ? fill_winding : fill_alternate});
    WindingSet = winding;
    std::string parameters;
    if (kept.size() > 1) Append_Word(parameters, static_cast<int>(kept.size()));
    for (const auto& figure : kept)
        Append_Word(parameters, static_cast<int>(figure.size()));
    for (const auto& figure : kept)
        Append_Points(parameters, figure);
    Add(kept.size() > 1 ? draw_polygons : draw_polygon, parameters);
}

void Metafile::Fill_Box(const MetaBox& box, Colour colour) {
    MetaBox place{box.Left, box.Top, std::max(box.Right, box.Left + 1), std::max(box.Bottom, box.Top + 1)};
    if (Clip) {
        // A box cut to the clip is a box again, and no reader can do it otherwise.
        place = {std::max(place.Left, Clip->Left), std::max(place.Top, Clip->Top),
                 std::min(place.Right, Clip->Right), std::min(place.Bottom, Clip->Bottom)};
        if (place.Left >= place.Right || place.Top >= place.Bottom) return;
    }
    // A rectangle without a pen ends a pixel before its right and lower edge, so that stripes of paper would
    // stand between boxes side by side; a thin outline of the same colour closes them.
    const std::string pen = std::exchange(Wanted[Pen], Pen_Object(MetaPen{1, colour}));
    const std::string brush = std::exchange(Wanted[Brush], Brush_Object(colour));
    Take_Pen_And_Brush(place);
    Add_Words(draw_rectangle, {place.Bottom, place.Right, place.Top, place.Left});
    Wanted[Pen] = pen;
    Wanted[Brush] = brush;
}

void Metafile::Ellipse(const MetaBox& around) {
    Take_Pen_And_Brush(With_Pen(around));
    Add_Words(draw_ellipse, {around.Bottom, around.Right, around.Top, around.Left});
}

void Metafile::Text(MetaPoint base, std::string_view utf8, std::span<const int> advances) {
    constexpr std::size_t longest_text = 4000;
    std::string letters = To_Windows_1252(utf8);
    if (letters.empty()) return;
    const bool placed = advances.size() == letters.size();
    letters.resize(std::min(letters.size(), longest_text));
    const std::size_t count = letters.size();
    const int reach = (placed ? std::accumulate(advances.begin(), advances.end(), 0)
                              : FontHeight * static_cast<int>(count));
    const int around = reach + FontHeight;  // whatever way it is turned
    Take_Clip(Turned ? MetaBox{base.X - around, base.Y - around, base.X + around, base.Y + around}
                     : MetaBox{base.X, base.Y - FontHeight, base.X + reach, base.Y + FontHeight / 4});
    Take(Font);
    if (!TextWaySet) {
        // Here and not once for all: some readers lose them when they save and restore the state.
        Add_Words(set_background_mode, {transparent_background});
        Add_Words(set_text_align, {align_base_line});
        TextWaySet = true;
    }
    if (TextColourSet != TextColour) {
        std::string colour;
        Append_Colour(colour, TextColour);
        Add(set_text_colour, colour);
        TextColourSet = TextColour;
    }
    std::string parameters;
    Append_Word(parameters, To_16_Bits(base.Y));
    Append_Word(parameters, To_16_Bits(base.X));
    Append_Word(parameters, static_cast<int>(count));
    Append_Word(parameters, 0);  // no box around
    if (count % 2 != 0) letters += '\0';
    parameters += letters;
    for (std::size_t at = 0; placed && at < count; ++at)
        Append_Word(parameters, To_16_Bits(advances[at]));
    Add(draw_text, parameters);
}

std::string Metafile::Bytes() const {
    std::string head;
    Append_Long(head, placeable_key);
    Append_Word(head, 0);
    for (const int side : {0, 0, Width, Height})
        Append_Word(head, side);
    Append_Word(head, Density);
    Append_Long(head, 0);
    int check = 0;
    for (std::size_t at = 0; at < head.size(); at += 2)
        check ^= static_cast<unsigned char>(head[at]) | static_cast<unsigned char>(head[at + 1]) << 8;
    Append_Word(head, check);

    std::string tail;
    const auto end = [&tail](std::uint16_t function, std::initializer_list<int> words) {
        Append_Long(tail, static_cast<std::uint32_t>(3 + words.size()));
        Append_Word(tail, function);
        for (const int word : words)
            Append_Word(tail, word);
    };
    end(restore_state, {-1});
    end(end_of_file, {});

    const auto words = static_cast<std::uint32_t>(header_words + (Records.size() + tail.size()) / 2);
    Append_Word(head, 1);  // in memory or in a file: the same
    Append_Word(head, header_words);
    Append_Word(head, format_version);
    Append_Long(head, words);
    Append_Word(head, static_cast<int>(Slots.size()));
    Append_Long(head, std::max<std::uint32_t>(LongestRecord, 4));
    Append_Word(head, 0);
    return head + Records + tail;
}

}  // namespace tarnvik
