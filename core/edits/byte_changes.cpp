#include "core/edits/byte_changes.h"

#include <algorithm>
#include <cstring>

namespace tarnvik {

namespace {

/// Runs that stand closer than this are one: the place of a run takes more room than a few equal bytes.
constexpr std::size_t closest_runs = 16;

std::size_t First_Difference(std::string_view one, std::string_view other, std::size_t from) {
    constexpr std::size_t stride = 256;
    while (from + stride <= one.size() && std::memcmp(one.data() + from, other.data() + from, stride) == 0)
        from += stride;
    while (from < one.size() && one[from] == other[from])
        ++from;
    return from;
}

}  // namespace

ByteChanges ByteChanges::Between(std::string_view before, std::string_view after) {
    ByteChanges changes;
    if (before.size() != after.size()) {
        const std::size_t shorter = std::min(before.size(), after.size());
        std::size_t front = 0;
        while (front < shorter && before[front] == after[front])
            ++front;
        std::size_t back = 0;
        while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
            ++back;
        changes.Runs.push_back({static_cast<std::int64_t>(front),
                                std::string(before.substr(front, before.size() - front - back)),
                                std::string(after.substr(front, after.size() - front - back))});
        return changes;
    }
    std::size_t start = First_Difference(before, after, 0);
    while (start < before.size()) {
        std::size_t end = start + 1;  // behind the last byte that differs
        for (std::size_t i = end; i < before.size() && i < end + closest_runs; ++i) {
            if (before[i] != after[i]) end = i + 1;
        }
        changes.Runs.push_back({static_cast<std::int64_t>(start),
                                std::string(before.substr(start, end - start)),
                                std::string(after.substr(start, end - start))});
        start = First_Difference(before, after, end);
    }
    return changes;
}

void ByteChanges::Add(std::int64_t position, std::string_view before, std::string_view after) {
    if (before == after) return;
    if (!Runs.empty() && Runs.back().Position == position && Runs.back().After.size() == before.size()) {
        Runs.back().After = after;
        if (Runs.back().Before == Runs.back().After) Runs.pop_back();
        return;
    }
    Runs.push_back({position, std::string(before), std::string(after)});
}

void ByteChanges::Append(const ByteChanges& later) {
    for (const Run& run : later.Runs)
        Add(run.Position, run.Before, run.After);
}

bool ByteChanges::Apply(std::string& bytes, Direction direction) const {
    std::string changed = bytes;
    const auto put = [&changed](const Run& run, const std::string& old, const std::string& fresh) {
        const auto position = static_cast<std::size_t>(run.Position);
        if (position + old.size() > changed.size()) return false;
        changed.replace(position, old.size(), fresh);
        return true;
    };
    if (direction == Direction::Forth) {
        for (const Run& run : Runs)
            if (!put(run, run.Before, run.After)) return false;
    } else {
        for (auto run = Runs.rbegin(); run != Runs.rend(); ++run)
            if (!put(*run, run->After, run->Before)) return false;
    }
    bytes = std::move(changed);
    return true;
}

ByteChanges ByteChanges::Reversed() const {
    ByteChanges reversed;
    for (auto run = Runs.rbegin(); run != Runs.rend(); ++run)
        reversed.Runs.push_back({run->Position, run->After, run->Before});
    return reversed;
}

std::size_t ByteChanges::Footprint() const {
    std::size_t size = Runs.size() * sizeof(Run);
    for (const Run& run : Runs)
        size += run.Before.size() + run.After.size();
    return size;
}

void ByteChanges::Write(ByteWriter& writer) const {
    writer.Value(static_cast<std::uint32_t>(Runs.size()));
    for (const Run& run : Runs) {
        writer.Value(run.Position);
        writer.Text(run.Before);
        writer.Text(run.After);
    }
}

ByteChanges ByteChanges::Read(ByteReader& reader) {
    ByteChanges changes;
    const auto count = reader.Value<std::uint32_t>();
    for (std::uint32_t i = 0; i < count && !reader.Failed(); ++i) {
        Run run;
        run.Position = reader.Value<std::int64_t>();
        run.Before = reader.Text();
        run.After = reader.Text();
        if (!reader.Failed()) changes.Runs.push_back(std::move(run));
    }
    return changes;
}

}  // namespace tarnvik
