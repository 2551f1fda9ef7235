#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnvik {

// Files that are written behind their end and belong to a program as long as it runs: the lock goes with the
// program that holds it, however it ends. Handles are those of the system, negative for none.

/// A new file to be read and written, locked; negative where there is one already or none can be made.
int Open_New_Locked(const std::string& path);
/// True while a running program holds the file; true also for one that cannot be opened.
bool Held_By_Another(const std::string& path);
/// True when all bytes went behind the end of the file.
bool Append_All(int handle, std::string_view bytes);
void Cut_To(int handle, std::int64_t length);
void Flush_Handle(int handle);
void Close_Handle(int handle);

}  // namespace tarnvik
