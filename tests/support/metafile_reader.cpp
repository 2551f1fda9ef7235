#include "support/metafile_reader.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace tarnvik::test {

namespace {

struct Object {
    int Function = 0;
    int Colour = -1;
    int FontHeight = 0;
};

class Player {
  public:
    explicit Player(const std::string& bytes) : Bytes(bytes) {}

    PlayedMetafile Play() {
        if (!Read_Heads()) return Played;
        std::size_t at = 40;
        unsigned longest = 0;
        bool ended = false;
        while (!ended) {
            if (at + 6 > Bytes.size()) return Fail("a record outside the file");
            const unsigned words = Long(at);
            if (words < 3 || at + 2 * std::size_t{words} > Bytes.size()) return Fail("a record's size");
            longest = std::max(longest, words);
            Parameters.clear();
            for (std::size_t word = at + 6; word < at + 2 * std::size_t{words}; word += 2)
                Parameters.push_back(static_cast<std::int16_t>(Word(word)));
            const int function = Word(at + 4);
            ended = function == 0;
            if (const std::string fault = Step(function, at + 6); !fault.empty()) return Fail(fault);
            at += 2 * std::size_t{words};
        }
        if (at != Bytes.size()) return Fail("bytes behind the end");
        if (longest != LongestRecord) return Fail("the longest record");
        if (MostObjects != NumberOfObjects) return Fail("the number of objects");
        return Played;
    }

  private:
    int Word(std::size_t at) const {
        return static_cast<unsigned char>(Bytes[at]) | static_cast<unsigned char>(Bytes[at + 1]) << 8;
    }
    unsigned Long(std::size_t at) const {
        return static_cast<unsigned>(Word(at)) | static_cast<unsigned>(Word(at + 2)) << 16;
    }
    PlayedMetafile Fail(const std::string& fault) {
        Played.Fault = fault;
        return Played;
    }
    int P(std::size_t at) const { return at < Parameters.size() ? Parameters[at] : 0; }
    int Colour_At(std::size_t at) const { return (P(at) & 0xFFFF) | (P(at + 1) & 0xFF) << 16; }

    bool Read_Heads() {
        if (Bytes.size() < 46 || Long(0) != 0x9AC6CDD7U) return Fail("no placeable head"), false;
        int check = 0;
        for (std::size_t at = 0; at < 20; at += 2)
            check ^= Word(at);
        if (check != Word(20)) return Fail("the check sum"), false;
        Played.Width = Word(10) - Word(6);
        Played.Height = Word(12) - Word(8);
        Played.UnitsAnInch = Word(14);
        if (Word(22) != 1 || Word(24) != 9 || Word(26) != 0x0300) return Fail("the head"), false;
        if (2 * std::size_t{Long(28)} != Bytes.size() - 22) return Fail("the size told"), false;
        NumberOfObjects = static_cast<std::size_t>(Word(32));
        LongestRecord = Long(34);
        return true;
    }

    std::string Step(int function, std::size_t parameters) {
        switch (function) {
            case 0x001E:  // save
                Saved.push_back(Now);
                return {};
            case 0x0127:  // restore
                if (Saved.empty() || P(0) != -1) return "a state that was not saved";
                Now = Saved.back();
                Saved.pop_back();
                return {};
            case 0x0209:
                Now.Ink = Colour_At(0);
                return {};
            case 0x0214:
                Now.At = {P(1), P(0)};
                return {};
            case 0x0416:
                Now.Clip = {P(3), P(2), P(1), P(0)};
                return {};
            case 0x02FA:
                return Make({function, P(0) == 5 ? -1 : Colour_At(3), 0});
            case 0x02FC:
                return Make({function, P(0) == 1 ? -1 : Colour_At(1), 0});
            case 0x02FB:
                return Make({function, -1, -P(0)});
            case 0x012D:
                return Select(static_cast<std::size_t>(P(0)));
            case 0x01F0:
                return Delete(static_cast<std::size_t>(P(0)));
            default:
                return Draw(function, parameters);
        }
    }

    std::string Make(const Object& object) {
        const auto free = std::find(Table.begin(), Table.end(), std::nullopt);
        (free == Table.end() ? Table.emplace_back() : *free) = object;
        MostObjects = std::max(MostObjects, Table.size());
        return {};
    }
    std::string Select(std::size_t slot) {
        if (slot >= Table.size() || !Table[slot]) return "an object that is not there is selected";
        const int function = Table[slot]->Function;
        (function == 0x02FA ? Now.Pen : function == 0x02FC ? Now.Brush : Now.Font) = slot;
        return {};
    }
    std::string Delete(std::size_t slot) {
        if (slot >= Table.size() || !Table[slot]) return "an object that is not there is deleted";
        const std::optional<std::size_t> gone = slot;
        std::vector<State> states = Saved;
        states.push_back(Now);
        for (const State& state : states) {
            if (gone == state.Pen || gone == state.Brush || gone == state.Font)
                return "an object in use is deleted";
        }
        Table[slot].reset();
        ++Played.Deletions;
        return {};
    }

    std::string Draw(int function, std::size_t parameters) {
        PlayedMetafile::Figure figure;
        figure.Function = function;
        figure.Clip = Now.Clip;
        const auto points = [&](std::size_t first, int count) {
            for (std::size_t at = first; at < first + 2 * static_cast<std::size_t>(count); ++at)
                figure.Places.push_back(P(at));
        };
        switch (function) {
            case PlayedMetafile::Rectangle:
            case PlayedMetafile::Ellipse:
                figure.Places = {P(3), P(2), P(1), P(0)};
                break;
            case 0x0213:
                figure.Function = PlayedMetafile::Polyline;
                figure.Places = Now.At;
                Now.At = {P(1), P(0)};
                figure.Places.insert(figure.Places.end(), Now.At.begin(), Now.At.end());
                break;
            case PlayedMetafile::Polyline:
            case PlayedMetafile::Polygon:
                if (Parameters.size() != 1 + 2 * static_cast<std::size_t>(P(0))) return "a number of points";
                points(1, P(0));
                break;
            case PlayedMetafile::Polygons: {
                const auto count = static_cast<std::size_t>(P(0));
                int all = 0;
                for (std::size_t at = 1; at <= count; ++at)
                    all += P(at);
                if (Parameters.size() != 1 + count + 2 * static_cast<std::size_t>(all))
                    return "a number of points";
                points(1 + count, all);
                break;
            }
            case PlayedMetafile::Text: {
                const auto count = static_cast<std::size_t>(P(2));
                const std::size_t advances = 4 + (count + 1) / 2;
                if (Parameters.size() != advances && Parameters.size() != advances + count)
                    return "a text's length";
                if (!Now.Font) return "a text without a font";
                figure.Letters = Bytes.substr(parameters + 8, count);
                figure.Places = {P(1), P(0)};
                for (std::size_t at = advances; at < Parameters.size(); ++at)
                    figure.Advances.push_back(P(at));
                figure.Ink = Now.Ink;
                figure.FontHeight = Table[*Now.Font]->FontHeight;
                Played.Figures.push_back(figure);
                return {};
            }
            default:
                return {};
        }
        if (!Now.Pen) return "a figure without a pen";
        if (figure.Function != PlayedMetafile::Polyline && !Now.Brush) return "a figure without a brush";
        figure.Ink = Table[*Now.Pen]->Colour;
        if (Now.Brush) figure.Filling = Table[*Now.Brush]->Colour;
        Played.Figures.push_back(figure);
        return {};
    }

    struct State {
        std::optional<std::size_t> Pen, Brush, Font;
        int Ink = 0;
        std::vector<int> Clip;
        std::vector<int> At{0, 0};
    };

    const std::string& Bytes;
    PlayedMetafile Played;
    std::vector<int> Parameters;
    std::size_t NumberOfObjects = 0;
    unsigned LongestRecord = 0;
    std::size_t MostObjects = 0;
    std::vector<std::optional<Object>> Table;
    State Now;
    std::vector<State> Saved;
};

}  // namespace

PlayedMetafile Play_Metafile(const std::string& bytes) {
    return Player(bytes).Play();
}

std::vector<PlayedMetafile::Figure> PlayedMetafile::All(int function) const {
    std::vector<Figure> found;
    std::copy_if(Figures.begin(), Figures.end(), std::back_inserter(found),
                 [function](const Figure& figure) { return figure.Function == function; });
    return found;
}

std::vector<PlayedMetafile::Figure> PlayedMetafile::Texts(const std::string& letters) const {
    std::vector<Figure> found = All(Text);
    std::erase_if(found, [&letters](const Figure& figure) { return figure.Letters != letters; });
    return found;
}

}  // namespace tarnvik::test
