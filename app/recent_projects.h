#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/settings.h"

namespace tarnvik {

class Session;

/// What the start dialog shows of a project file without opening it.
struct ProjectGlimpse {
    /// One travel-time curve; x along the line and y in time both from 0 to 1, time 0 at 0.
    struct Curve {
        struct Place {
            float X = 0;
            float Y = 0;
        };
        Colour InColour = 0;
        std::vector<Place> Points;
    };
    std::string Path;
    std::string Name;     ///< of the project
    std::string Folder;   ///< without a separator behind it
    std::string Changed;  ///< day and time in the user's time zone
    std::string Size;     ///< "5 shots, 24 receivers"
    std::vector<Curve> Curves;
};

/// Nothing for a file that is not there or is no project.
std::optional<ProjectGlimpse> Glimpse_Of(const std::string& path);

/// The recent files that are there, newest first, each once.
std::vector<ProjectGlimpse> Recent_Projects(const Settings& settings);

/// The demo lines that come with the program.
std::vector<ProjectGlimpse> Demo_Lines(const Session& session);

/// Opens a demo line: a copy of it and of its records in the user's documents, so that the one of the program
/// stays as it is. A copy from before is opened again with the work that it holds. False when the user was
/// told why not.
bool Open_Demo_Line(Session& session, const std::string& path);

}  // namespace tarnvik
