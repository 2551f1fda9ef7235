#include "core/edits/project_block.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace tarnvik {

namespace {

/// Walks over all members of a project, const or not, in the order of the block: what has a fixed size first.
template <class P, class Visit>
void For_Each_Member(P& project, Visit visit) {
    visit(ProjectPart::Counts, project.NbShots);
    visit(ProjectPart::Counts, project.NbReceivers);
    visit(ProjectPart::TotalTime, project.TotalTime);
    visit(ProjectPart::Line, project.LineLength);
    visit(ProjectPart::Line, project.DistanceShift);
    visit(ProjectPart::Times, project.ShotTimes);
    visit(ProjectPart::Receivers, project.ReceiverData);
    visit(ProjectPart::Shots, project.ShotElevation);
    visit(ProjectPart::Shots, project.ShotDistance);
    visit(ProjectPart::Shots, project.ShotDepth);
    visit(ProjectPart::Velocities, project.VelocityA);
    visit(ProjectPart::Velocities, project.VelocityB);
    visit(ProjectPart::Refractors, project.InterceptA);
    visit(ProjectPart::Refractors, project.InterceptB);
    visit(ProjectPart::Refractors, project.CritDistA);
    visit(ProjectPart::Refractors, project.CritDistB);
    visit(ProjectPart::Thicknesses, project.ShotThickness);
    visit(ProjectPart::FieldRecords, project.SuFile);
    visit(ProjectPart::Remarks, project.remark_grid);
    // Behind here stands what no project file keeps.
    visit(ProjectPart::Line, project.GeoSpace);
    visit(ProjectPart::Shots, project.ShotDistanceZ);
    visit(ProjectPart::Grm, project.GrmData);
    visit(ProjectPart::Origins, project.PickOrigins);
}

struct BlockWriter {
    ByteWriter& Bytes;

    template <class T>
    requires std::is_arithmetic_v<T>
    void operator()(ProjectPart, T value) const { Bytes.Value(value); }
    template <class T>
    void operator()(ProjectPart, const Array1<T>& array) const {
        Bytes.Value(static_cast<std::int32_t>(array.Last()));
        Bytes.Raw(array.Values().data(), array.Values().size_bytes());
    }
    template <class T>
    void operator()(ProjectPart, const Array2<T>& array) const {
        Bytes.Value(static_cast<std::int32_t>(array.Last_Row()));
        Bytes.Value(static_cast<std::int32_t>(array.Last_Column()));
        Bytes.Raw(array.Values().data(), array.Values().size_bytes());
    }
    void operator()(ProjectPart, const std::string& text) const { Bytes.Text(text); }
    void operator()(ProjectPart, const TextGrid& grid) const {
        for (int row = Project::RemarkFirstRow; row <= Project::RemarkLastRow; ++row) {
            for (int column = 0; column < Project::RemarkColumns; ++column)
                Bytes.Text(grid.Text(row, column));
        }
    }
};

/// Elements of an array, counted without overflow; more than any project has are a damaged block.
std::optional<std::size_t> Elements(std::int64_t last_row, std::int64_t last_column) {
    constexpr std::int64_t most = 16 * max_picks;
    if (last_row < -1 || last_column < -1) return std::nullopt;
    const std::int64_t rows = last_row + 1;
    const std::int64_t columns = last_column + 1;
    if (columns > 0 && rows > most / columns) return std::nullopt;
    return static_cast<std::size_t>(rows * columns);
}

struct BlockReader {
    ByteReader& Bytes;

    template <class T>
    requires std::is_arithmetic_v<T>
    void operator()(ProjectPart, T& value) const { value = Bytes.Value<T>(); }
    template <class T>
    void operator()(ProjectPart, Array1<T>& array) const {
        const auto last = Bytes.Value<std::int32_t>();
        const auto elements = Elements(last, 0);
        if (!elements) Bytes.Fail();
        const std::string_view values = Bytes.View(elements.value_or(0) * sizeof(T));
        if (Bytes.Failed()) return;
        array = Array1<T>(last);
        if (!values.empty()) std::memcpy(array.Values().data(), values.data(), values.size());
    }
    template <class T>
    void operator()(ProjectPart, Array2<T>& array) const {
        const auto rows = Bytes.Value<std::int32_t>();
        const auto columns = Bytes.Value<std::int32_t>();
        const auto elements = Elements(rows, columns);
        if (!elements) Bytes.Fail();
        const std::string_view values = Bytes.View(elements.value_or(0) * sizeof(T));
        if (Bytes.Failed()) return;
        if (array.Last_Row() != rows || array.Last_Column() != columns) array = Array2<T>(rows, columns);
        if (!values.empty()) std::memcpy(array.Values().data(), values.data(), values.size());
    }
    void operator()(ProjectPart, std::string& text) const { text = Bytes.Text(); }
    void operator()(ProjectPart, TextGrid& grid) const {
        if (grid.Rows() <= Project::RemarkLastRow || grid.Columns() < Project::RemarkColumns)
            grid.Resize(Project::RemarkLastRow + 1, Project::RemarkColumns);
        for (int row = Project::RemarkFirstRow; row <= Project::RemarkLastRow; ++row) {
            for (int column = 0; column < Project::RemarkColumns; ++column)
                grid.Set_Text(row, column, Bytes.Text());
        }
    }
};

/// Where a member stands in the block.
struct Member {
    ProjectPart Part;
    std::int64_t First = 0;
    std::int64_t End = 0;
    bool Filed = true;
};

std::vector<Member> Members_Of(const Project& project) {
    std::vector<Member> members;
    ByteWriter bytes;
    bool filed = true;
    For_Each_Member(project, [&](ProjectPart part, const auto& value) {
        if (static_cast<const void*>(&value) == &project.GeoSpace) filed = false;
        const auto first = static_cast<std::int64_t>(bytes.Size());
        BlockWriter{bytes}(part, value);
        members.push_back({part, first, static_cast<std::int64_t>(bytes.Size()), filed});
    });
    return members;
}

constexpr std::size_t total_time_at = 2 * sizeof(std::int16_t);

}  // namespace

std::string Project_Block(const Project& project) {
    ByteWriter bytes;
    bytes.Reserve(project.ShotTimes.Values().size_bytes() + project.ReceiverData.Values().size_bytes() +
                  project.GrmData.Values().size_bytes() +
                  1024U * (2U + static_cast<unsigned>(project.NbShots & 127)));
    For_Each_Member(project, BlockWriter{bytes});
    return bytes.Take();
}

bool Take_Project_Block(std::string_view block, Project& project) {
    Project read;
    read.remark_grid = project.remark_grid;  // for its headings and alignments
    ByteReader bytes(block);
    For_Each_Member(read, BlockReader{bytes});
    if (bytes.Failed() || !bytes.At_End()) return false;
    read.CurrentFile = std::move(project.CurrentFile);
    read.ProjectDir = std::move(project.ProjectDir);
    read.ProjectName = std::move(project.ProjectName);
    project = std::move(read);
    return true;
}

TouchedParts Touched_By(const ByteChanges& changes, const Project& project) {
    TouchedParts touched;
    if (changes.Empty()) return touched;
    const std::vector<Member> members = Members_Of(project);
    const std::int64_t columns = project.ShotTimes.Last_Column() + 1;
    for (const ByteChanges::Run& run : changes.All()) {
        const auto run_end =
            run.Position + static_cast<std::int64_t>(std::max(run.Before.size(), run.After.size()));
        for (const Member& member : members) {
            if (member.First >= run_end || member.End <= run.Position) continue;
            touched.Parts.Add(member.Part);
            const bool times = member.Part == ProjectPart::Times;
            if (!times && member.Part != ProjectPart::Origins) continue;
            if (run.Before.size() != run.After.size() || columns <= 0) continue;
            const std::int64_t values = member.First + 2 * static_cast<std::int64_t>(sizeof(std::int32_t));
            const auto size = static_cast<std::int64_t>(times ? sizeof(float) : sizeof(PickOrigin));
            for (std::int64_t i = std::max(run.Position - values, std::int64_t{0}) / size;
                 values + i * size < std::min(run_end, member.End); ++i) {
                // Equal bytes between two changes belong to the run and are no change.
                const std::int64_t from = std::max(values + i * size, run.Position) - run.Position;
                const std::int64_t to = std::min(values + (i + 1) * size, run_end) - run.Position;
                const auto count = static_cast<std::size_t>(to - from);
                const auto at = static_cast<std::size_t>(from);
                if (run.Before.compare(at, count, run.After, at, count) == 0) continue;
                touched.Picks.push_back({static_cast<int>(i / columns), static_cast<int>(i % columns)});
            }
        }
    }
    std::sort(touched.Picks.begin(), touched.Picks.end());
    touched.Picks.erase(std::unique(touched.Picks.begin(), touched.Picks.end()), touched.Picks.end());
    return touched;
}

bool Same_Filed_Content(std::string_view one, std::string_view other) {
    const auto filed = [](std::string_view block) {
        Project project;
        ByteReader bytes(block);
        For_Each_Member(project, BlockReader{bytes});
        const auto unfiled = sizeof(double) + sizeof(std::int32_t) +
                             project.ShotDistanceZ.Values().size_bytes() + 2 * sizeof(std::int32_t) +
                             project.GrmData.Values().size_bytes() + 2 * sizeof(std::int32_t) +
                             project.PickOrigins.Values().size_bytes();
        return block.substr(0, block.size() - std::min(block.size(), unfiled));
    };
    if (one.size() < total_time_at + sizeof(double) || other.size() < total_time_at + sizeof(double))
        return one == other;
    const std::string_view a = filed(one);
    const std::string_view b = filed(other);
    return a.substr(0, total_time_at) == b.substr(0, total_time_at) &&
           a.substr(total_time_at + sizeof(double)) == b.substr(total_time_at + sizeof(double));
}

}  // namespace tarnvik
