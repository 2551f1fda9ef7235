#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "interpretation/layered_section.h"

namespace tarnvik {

/// A place on or below the ground.
struct LinePlace {
    double X = 0;
    double Z = 0;  ///< elevation
};

/// What first arrivals are computed of. The times go along the shorter of both lists.
struct ForwardRequest {
    LayeredSection Section;
    std::vector<LinePlace> Shots;
    std::vector<LinePlace> Receivers;
    /// Squares of the grid, about; fewer where they would be finer than a thin layer needs.
    double Nodes = 200000;
    unsigned Threads = 0;  ///< 0: as many as the machine has
};

/// Told how many of how many sources are done; false stops. Called from the thread that asked.
using ForwardProgress = std::function<bool(std::size_t done, std::size_t all)>;

struct ForwardResult {
    std::vector<std::vector<double>> Times;  ///< by shot and receiver, ms; negative where no wave comes
    double Cell = 0;                         ///< size of the squares
    bool Stopped = false;
};

/// First arrivals at every receiver of every shot.
ForwardResult First_Arrivals(const ForwardRequest& request, const ForwardProgress& progress = {});

}  // namespace tarnvik
