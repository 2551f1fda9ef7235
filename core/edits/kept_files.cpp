#include "core/edits/kept_files.h"

#include <filesystem>
#include <map>
#include <set>
#include <system_error>
#include <vector>

#include "core/edits/journal.h"
#include "core/edits/locked_file.h"
#include "core/files.h"

namespace tarnvik {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view ending = ".kept";
constexpr int most_names = 100;

enum Kind : char { begun = 'B', kept = 'K', passing = 'P', gone = '-' };

struct Entry {
    char What = gone;
    std::string Path;
    FileStamp After;
};
using Entries = std::map<std::string, Entry>;  // by the name aside

Entries Read_List(const std::string& path) {
    Entries entries;
    const std::string bytes = Read_File(path).value_or("");
    ByteReader reader(bytes);
    while (!reader.At_End()) {
        Entry entry;
        entry.What = reader.Value<char>();
        const std::string aside = reader.Text();
        entry.Path = reader.Text();
        entry.After = FileStamp::Read(reader);
        if (reader.Failed()) break;
        Entry& known = entries[aside];
        if (entry.What == kept) {
            known.What = kept;
        } else {
            known = entry;
        }
    }
    std::erase_if(entries, [](const auto& item) { return item.second.What == gone; });
    return entries;
}

std::vector<std::string> Files_Of(const std::string& folder, std::string_view with_ending) {
    std::vector<std::string> found;
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed); !failed && entry != fs::directory_iterator();
         entry.increment(failed)) {
        if (entry->path().string().ends_with(with_ending)) found.push_back(entry->path().string());
    }
    return found;
}

std::set<std::string> Named_In_Journals(const std::string& folder) {
    std::set<std::string> named;
    for (const std::string& path : Files_Of(folder, ".journal")) {
        for (const JournalContent::Record& record : Read_Journal(path).Records) {
            for (const FileSwap& swap : record.Content.Swaps)
                named.insert(swap.Aside);
        }
    }
    return named;
}

/// The program ended between the exchange of two files and the edit that it belonged to.
void Put_Back(const std::string& aside, const Entry& entry) {
    std::error_code failed;
    if (!Is_Name_Aside(aside) || !File_Exists(aside)) return;
    if (!File_Exists(entry.Path) || Stamp_Of(entry.Path) == entry.After)
        fs::rename(aside, entry.Path, failed);
}

}  // namespace

KeptFiles::~KeptFiles() {
    if (Handle < 0) return;
    Close_Handle(Handle);
    // What is still listed is for the next program to look at.
    std::error_code failed;
    if (Listed == 0 || Read_List(List).empty()) fs::remove(List, failed);
}

void KeptFiles::Append(char kind, const std::string& aside, const std::string& path, const FileStamp& after) {
    if (Folder.empty()) return;
    std::error_code failed;
    if (Handle < 0) fs::create_directories(Folder, failed);
    for (int number = 1; Handle < 0 && number <= most_names; ++number) {
        List = Folder + "/files-" + std::to_string(number) + std::string(ending);
        Handle = Open_New_Locked(List);
    }
    if (Handle < 0) return;
    ByteWriter record;
    record.Value(kind);
    record.Text(aside);
    record.Text(path);
    after.Write(record);
    Append_All(Handle, record.Bytes());
}

void KeptFiles::Begin(const std::string& path, const std::string& aside, const FileStamp& after) {
    ++Listed;
    Append(begun, aside, path, after);
}

void KeptFiles::Keep(const std::string& aside) {
    Append(kept, aside, {}, {});
}

void KeptFiles::Begin_Passing(const std::string& aside) {
    ++Listed;
    Append(passing, aside, {}, {});
}

void KeptFiles::Forget(const std::string& aside) {
    if (Handle < 0) return;
    Append(gone, aside, {}, {});
}

void Clear_Kept_Files(const std::string& folder) {
    const std::vector<std::string> lists = Files_Of(folder, ending);
    if (lists.empty()) return;
    const std::set<std::string> named = Named_In_Journals(folder);
    for (const std::string& list : lists) {
        if (Held_By_Another(list)) continue;
        bool settled = true;
        for (const auto& [aside, entry] : Read_List(list)) {
            if (named.contains(aside)) {
                settled = false;
                continue;
            }
            if (entry.What == begun) Put_Back(aside, entry);
            Remove_Aside(aside);
        }
        std::error_code failed;
        if (settled) fs::remove(list, failed);
    }
}

}  // namespace tarnvik
