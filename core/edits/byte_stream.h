#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace tarnvik {

/// Writes plain values and texts one behind the other, in the machine's own byte order: for what this program
/// alone reads again.
class ByteWriter {
  public:
    template <class T>
    requires std::is_arithmetic_v<T>
    void Value(T value) { Written.append(reinterpret_cast<const char*>(&value), sizeof value); }
    /// A text with its length in front.
    void Text(std::string_view text) {
        Value(static_cast<std::uint32_t>(text.size()));
        Written.append(text);
    }
    void Raw(const void* bytes, std::size_t count) { Written.append(static_cast<const char*>(bytes), count); }

    void Reserve(std::size_t count) { Written.reserve(count); }
    std::size_t Size() const { return Written.size(); }
    std::string Take() { return std::move(Written); }
    const std::string& Bytes() const { return Written; }

  private:
    std::string Written;
};

/// Reads them back. What is missing at the end reads as zero and makes the reader fail.
class ByteReader {
  public:
    explicit ByteReader(std::string_view bytes) : Left(bytes) {}

    template <class T>
    requires std::is_arithmetic_v<T> T Value() {
        T value{};
        Raw(&value, sizeof value);
        return value;
    }
    std::string Text() { return std::string(View(Value<std::uint32_t>())); }
    /// The next bytes without a copy; empty when so many are not there.
    std::string_view View(std::size_t count) {
        if (count > Left.size()) {
            HasFailed = true;
            Left = {};
            return {};
        }
        const std::string_view found = Left.substr(0, count);
        Left.remove_prefix(count);
        return found;
    }
    void Raw(void* target, std::size_t count) {
        const std::string_view found = View(count);
        if (!found.empty()) std::memcpy(target, found.data(), found.size());
    }

    /// What was read makes no sense: as if the bytes had ended.
    void Fail() { View(Left.size() + 1); }
    bool Failed() const { return HasFailed; }
    bool At_End() const { return Left.empty(); }

  private:
    std::string_view Left;
    bool HasFailed = false;
};

}  // namespace tarnvik
