#include "core/grm_file.h"

#include <array>
#include <optional>
#include <vector>

#include "core/files.h"
#include "core/text/item_reader.h"
#include "core/text/number.h"
#include "core/text/print_line.h"

namespace tarnvik {

namespace {

// Word for word as they always were: they number the lines of the file and name one velocity too few.
constexpr std::array remarks = {
    "1 ligne = TotalTime",  "2 ligne = Time ay ",   "3 ligne = Time bx ",
    "4 ligne = Time GRM ",  "5 ligne = Velocity ",  "6 ligne = Velocity ",
    "7 ligne = Thickness ", "8 ligne = Thickness ", "9 ligne = BedRock depth 0",
};

/// The numbers in front of the first line that holds a word; nothing where one is beyond all range.
std::optional<std::vector<double>> Leading_Numbers(std::string_view bytes) {
    std::vector<double> numbers;
    while (!bytes.empty()) {
        const auto end = bytes.find_first_of("\r\n");
        ItemReader line(bytes.substr(0, end));
        std::vector<double> own;
        double number = 0;
        while (line.Number(number))
            own.push_back(number);
        if (!line.No_Words()) break;
        if (line.All_There()) return std::nullopt;
        numbers.insert(numbers.end(), own.begin(), own.end());
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    }
    return numbers;
}

}  // namespace

std::string Grm_Bytes(const GrmContent& content, int receivers) {
    std::string bytes =
        PrintLine().Item(content.TotalTime).Zone().Item(static_cast<int>(content.GrmXY)).End();
    for (int row = 1; row <= GrmContent::Rows; ++row) {
        PrintLine line;
        for (int receiver = 1; receiver <= receivers; ++receiver)
            line.Item(content.Data(row, receiver));
        bytes += line.End();
    }
    for (const char* remark : remarks)
        bytes += PrintLine().Raw(remark).End();
    return bytes;
}

GrmReading Parse_Grm(std::string_view bytes, int receivers) {
    GrmReading reading;
    const auto numbers = Leading_Numbers(bytes);
    if (!numbers || receivers < 1) return reading;
    const std::size_t wanted =
        2 + static_cast<std::size_t>(GrmContent::Rows) * static_cast<std::size_t>(receivers);
    if (numbers->size() < wanted) return reading;
    const auto xy = CInt((*numbers)[1]);
    if (!xy) return reading;
    reading.Good = true;
    reading.Content.TotalTime = numbers->front();
    reading.Content.GrmXY = *xy;
    reading.Content.Data = {GrmContent::Rows, receivers};
    std::size_t next = 2;
    for (int row = 1; row <= GrmContent::Rows; ++row) {
        for (int receiver = 1; receiver <= receivers; ++receiver)
            reading.Content.Data(row, receiver) = (*numbers)[next++];
    }
    if (numbers->size() > wanted) {
        reading.Remark = "it holds " + CStr(static_cast<int>(numbers->size())) + " numbers, a line of " +
                         CStr(receivers) + " receivers has " + CStr(static_cast<int>(wanted)) +
                         ": it may belong to another line";
    }
    return reading;
}

std::string Grm_File_Written(const std::string& project_file) {
    const std::string name = Name_Of(project_file);
    return Folder_Of(project_file) + name.substr(0, name.find('.')) + ".GRM";
}

std::string Grm_File_Beside(const std::string& project_file) {
    const std::string written = Grm_File_Written(project_file);
    for (const std::string& path :
         {Derived_File(written, ".GRM", ".GRM"), Derived_File(project_file, ".tv5", ".grm")}) {
        if (path != project_file && File_Exists(path)) return path;
    }
    return written;
}

}  // namespace tarnvik
