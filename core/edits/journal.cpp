#include "core/edits/journal.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>

#include "core/check_sum.h"
#include "core/edits/locked_file.h"
#include "core/files.h"

namespace tarnvik {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view mark = "Tarnvik journal 1\n";
constexpr std::string_view ending = ".journal";
constexpr int most_names = 100;

std::string Free_Name(const std::string& folder, const std::string& project_file, int number) {
    std::string name = Name_Of(project_file);
    if (name.empty()) name = "new profile";
    return folder + "/" + name + "-" + std::to_string(Check_Sum(project_file)) + "-" +
           std::to_string(number) + std::string(ending);
}

}  // namespace

/// Brings what was written to the disk without keeping the writer waiting.
class Journal::Flusher {
  public:
    explicit Flusher(int handle) : Handle(handle), Work([this] { Run(); }) {}
    ~Flusher() {
        {
            const std::lock_guard guard(Access);
            Ending = true;
        }
        Wake.notify_one();
        Work.join();
    }
    Flusher(const Flusher&) = delete;
    Flusher& operator=(const Flusher&) = delete;

    void Ask() {
        {
            const std::lock_guard guard(Access);
            Asked = true;
        }
        Wake.notify_one();
    }

  private:
    void Run() {
        std::unique_lock guard(Access);
        while (true) {
            Wake.wait(guard, [this] { return Asked || Ending; });
            if (!Asked) return;
            Asked = false;
            guard.unlock();
            Flush_Handle(Handle);
            guard.lock();
        }
    }

    int Handle;
    std::mutex Access;
    std::condition_variable Wake;
    bool Asked = false;
    bool Ending = false;
    std::thread Work;
};

Journal::Journal(std::string path, int handle)
    : Path(std::move(path)), Handle(handle), OnDisk(std::make_unique<Flusher>(handle)) {}

Journal::~Journal() {
    OnDisk.reset();
    Close_Handle(Handle);
}

std::unique_ptr<Journal> Journal::Begin(const std::string& folder, const std::string& project_file,
                                        std::string_view base_block) {
    std::error_code failed;
    fs::create_directories(folder, failed);
    for (int number = 1; number <= most_names; ++number) {
        const std::string path = Free_Name(folder, project_file, number);
        const int handle = Open_New_Locked(path);
        if (handle < 0 && fs::exists(path, failed)) continue;  // a former journal, kept until it is answered
        if (handle < 0) return nullptr;
        std::unique_ptr<Journal> journal(new Journal(path, handle));
        ByteWriter head;
        head.Text(project_file);
        head.Text(base_block);
        journal->Length = static_cast<std::int64_t>(mark.size());
        journal->IsWhole = Append_All(handle, mark);
        journal->Append('B', head.Bytes());
        if (journal->IsWhole) return journal;
        journal->Remove();
        return nullptr;
    }
    return nullptr;
}

void Journal::Append(char kind, std::string_view payload) {
    if (!IsWhole) return;
    ByteWriter record;
    record.Reserve(payload.size() + 16);
    record.Value(kind);
    record.Text(payload);
    record.Value(Check_Sum(payload));
    IsWhole = Append_All(Handle, record.Bytes());
    if (IsWhole) {
        Length += static_cast<std::int64_t>(record.Bytes().size());
    } else {
        Cut_To(Handle, Length);
    }
    OnDisk->Ask();
}

void Journal::Write_Record(JournalContent::Kind kind, const Edit& content) {
    ByteWriter payload;
    content.Write(payload);
    Append(static_cast<char>(kind), payload.Bytes());
    switch (kind) {
        case JournalContent::Kind::Edit:
            Size = ++Done;
            break;
        case JournalContent::Kind::Undo:
            --Done;
            break;
        case JournalContent::Kind::Redo:
            ++Done;
            break;
        case JournalContent::Kind::Join:
            break;
    }
}

void Journal::Write_Edit(const Edit& edit, bool joins) {
    using Kind = JournalContent::Kind;
    Write_Record(joins && InStep && Done > 0 ? Kind::Join : Kind::Edit, edit);
}

void Journal::Write_Step(bool back, const Edit& edit) {
    using Kind = JournalContent::Kind;
    Edit step;
    step.Name = (back ? "Undo: " : "Redo: ") + edit.Name;
    step.Time = std::chrono::system_clock::now();
    step.Block = back ? edit.Block.Reversed() : edit.Block;
    for (const FileChange& file : edit.Files)
        step.Files.push_back({file.Path, back ? file.Bytes.Reversed() : file.Bytes});
    step.Swaps = edit.Swaps;
    if (back) {
        for (FileSwap& swap : step.Swaps)
            std::swap(swap.Before, swap.After);
    }
    // Behind the beginning of the journal its places and the history's no longer go together: from there on
    // each step is an edit of its own.
    InStep = InStep && (back ? Done > 0 : Done < Size);
    const Kind along = back ? Kind::Undo : Kind::Redo;
    Write_Record(InStep ? along : Kind::Edit, step);
}

void Journal::Remove() {
    std::error_code failed;
    fs::remove(Path, failed);
}

namespace {

/// A file that went aside with a step may have been written into since the edit.
void Take_Stamps(Edit& edit, const Edit& step, bool back) {
    if (step.Swaps.size() != edit.Swaps.size()) return;
    for (std::size_t i = 0; i < edit.Swaps.size(); ++i) {
        edit.Swaps[i].Before = back ? step.Swaps[i].After : step.Swaps[i].Before;
        edit.Swaps[i].After = back ? step.Swaps[i].Before : step.Swaps[i].After;
    }
}

}  // namespace

JournalContent::Walked JournalContent::Walk() const {
    Walked walked;
    auto& [edits, done] = walked;
    for (const Record& record : Records) {
        if (record.What == Kind::Undo && done > 0) {
            Take_Stamps(edits[--done], record.Content, true);
        } else if (record.What == Kind::Redo && done < edits.size()) {
            Take_Stamps(edits[done++], record.Content, false);
        } else if (record.What == Kind::Join && done > 0) {
            edits[done - 1].Join(record.Content);
        } else {
            edits.resize(done);
            edits.push_back(record.Content);
            done = edits.size();
        }
    }
    return walked;
}

std::string JournalContent::Last_Block() const {
    std::string block = Base;
    for (const Record& record : Records) {
        if (!record.Content.Block.Apply(block, ByteChanges::Direction::Forth)) return {};
    }
    return block;
}

std::size_t JournalContent::Edits_Of_Project() const {
    const Walked walked = Walk();
    return static_cast<std::size_t>(
        std::count_if(walked.Edits.begin(), walked.Edits.begin() + static_cast<std::ptrdiff_t>(walked.Done),
                      [](const tarnvik::Edit& edit) { return !edit.Block.Empty(); }));
}

std::string JournalContent::Last_Name() const {
    const Walked walked = Walk();
    for (std::size_t i = walked.Done; i > 0; --i) {
        if (!walked.Edits[i - 1].Block.Empty()) return walked.Edits[i - 1].Name;
    }
    return {};
}

std::chrono::system_clock::time_point JournalContent::Last_Time() const {
    return Records.empty() ? std::chrono::system_clock::time_point() : Records.back().Content.Time;
}

JournalContent Read_Journal(const std::string& path) {
    JournalContent content;
    const auto bytes = Read_File(path);
    if (!bytes || !bytes->starts_with(mark)) return content;
    ByteReader reader(std::string_view(*bytes).substr(mark.size()));
    bool begun = false;
    while (!reader.At_End()) {
        const char kind = reader.Value<char>();
        const std::string payload = reader.Text();
        const auto sum = reader.Value<std::uint32_t>();
        if (reader.Failed() || sum != Check_Sum(payload)) break;
        ByteReader inside(payload);
        if (kind == 'B') {
            content.ProjectFile = inside.Text();
            content.Base = inside.Text();
            begun = !inside.Failed();
            continue;
        }
        JournalContent::Record record;
        record.What = static_cast<JournalContent::Kind>(kind);
        record.Content = Edit::Read(inside);
        if (inside.Failed()) break;
        content.Records.push_back(std::move(record));
    }
    if (begun) content.File = path;
    return content;
}

std::vector<JournalContent> Journals_Left_Behind(const std::string& folder) {
    std::vector<JournalContent> found;
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed); !failed && entry != fs::directory_iterator();
         entry.increment(failed)) {
        const std::string path = entry->path().string();
        if (!path.ends_with(ending) || Held_By_Another(path)) continue;
        JournalContent content = Read_Journal(path);
        if (content.File.empty()) continue;
        if (content.Edits_Of_Project() > 0) {
            found.push_back(std::move(content));
        } else {
            // It would only fill the folder. A file that was on its way back or forth goes back.
            Give_Up_Files(content);
            Remove_Journal(content);
        }
    }
    std::sort(found.begin(), found.end(), [](const JournalContent& one, const JournalContent& other) {
        return one.Last_Time() > other.Last_Time();
    });
    return found;
}

void Remove_Journal(const JournalContent& content) {
    std::error_code failed;
    if (!content.File.empty()) fs::remove(content.File, failed);
}

}  // namespace tarnvik
