#pragma once

#include <string>
#include <string_view>

namespace tarnvik {

/// Lower and upper case of the letters A to Z; all other bytes, also those of UTF-8 letters, stay.
std::string LCase(std::string_view text);
std::string UCase(std::string_view text);

/// Text without leading and trailing blanks and tabs.
std::string Trim(std::string_view text);

/// The last `count` characters (bytes), or all of a shorter text.
std::string_view Right(std::string_view text, std::size_t count);
std::string_view Left(std::string_view text, std::size_t count);

/// The text on one line: each carriage return and line feed becomes a blank.
std::string One_Line(std::string_view text);

/// Replaces the first place where `found` stands, found without regard to case; all other letters stay as
/// they are.
std::string Replace_First(std::string_view text, std::string_view found, std::string_view replacement);

/// Files hold Windows-1252, the program holds UTF-8. Bytes and letters that the other side lacks become "?";
/// the five unassigned bytes of Windows-1252 pass as the control letters of the same number.
std::string From_Windows_1252(std::string_view bytes);
std::string To_Windows_1252(std::string_view utf8);

}  // namespace tarnvik
