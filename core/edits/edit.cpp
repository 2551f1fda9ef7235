#include "core/edits/edit.h"

#include <algorithm>

namespace tarnvik {

void Edit::Add_File_Change(const std::string& path, std::int64_t position, std::string_view before,
                           std::string_view after) {
    auto found =
        std::find_if(Files.begin(), Files.end(), [&](const FileChange& file) { return file.Path == path; });
    if (found == Files.end()) found = Files.insert(Files.end(), {path, {}});
    found->Bytes.Add(position, before, after);
}

void Edit::Join(const Edit& later) {
    Time = later.Time;
    Block.Append(later.Block);
    for (const FileChange& file : later.Files) {
        for (const ByteChanges::Run& run : file.Bytes.All())
            Add_File_Change(file.Path, run.Position, run.Before, run.After);
    }
}

std::size_t Edit::Footprint() const {
    std::size_t size = sizeof(Edit) + Name.size() + Block.Footprint();
    for (const FileChange& file : Files)
        size += file.Path.size() + file.Bytes.Footprint();
    size += Swaps.size() * sizeof(FileSwap);
    return size;
}

void Edit::Write(ByteWriter& writer) const {
    using std::chrono::duration_cast;
    writer.Text(Name);
    writer.Value(
        static_cast<std::int64_t>(duration_cast<std::chrono::milliseconds>(Time.time_since_epoch()).count()));
    Block.Write(writer);
    writer.Value(static_cast<std::uint32_t>(Files.size()));
    for (const FileChange& file : Files) {
        writer.Text(file.Path);
        file.Bytes.Write(writer);
    }
    if (Swaps.empty()) return;
    writer.Value(static_cast<std::uint32_t>(Swaps.size()));
    for (const FileSwap& swap : Swaps) {
        writer.Text(swap.Path);
        writer.Text(swap.Aside);
        swap.Before.Write(writer);
        swap.After.Write(writer);
    }
}

Edit Edit::Read(ByteReader& reader) {
    Edit edit;
    edit.Name = reader.Text();
    edit.Time =
        std::chrono::system_clock::time_point(std::chrono::milliseconds(reader.Value<std::int64_t>()));
    edit.Block = ByteChanges::Read(reader);
    const auto files = reader.Value<std::uint32_t>();
    for (std::uint32_t i = 0; i < files && !reader.Failed(); ++i) {
        FileChange file;
        file.Path = reader.Text();
        file.Bytes = ByteChanges::Read(reader);
        edit.Files.push_back(std::move(file));
    }
    if (reader.At_End()) return edit;
    const auto swaps = reader.Value<std::uint32_t>();
    for (std::uint32_t i = 0; i < swaps && !reader.Failed(); ++i) {
        FileSwap swap;
        swap.Path = reader.Text();
        swap.Aside = reader.Text();
        swap.Before = FileStamp::Read(reader);
        swap.After = FileStamp::Read(reader);
        edit.Swaps.push_back(std::move(swap));
    }
    return edit;
}

}  // namespace tarnvik
