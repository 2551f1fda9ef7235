#pragma once

#include <functional>
#include <vector>

#include "demo/layered_earth.h"

namespace tarnvik {

/// One layer over a faster half space whose top undulates: the first arrivals that methods for a depth below
/// every receiver can be held against. Nothing is assumed about where a wave runs: the times are the least
/// ones of all paths (Fermat), through the layer to the refractor, below it along straight lines where they
/// stay below it and along it where it is deeper than they are, and up again.
class UndulatingEarth {
  public:
    /// Velocities in distance units per second; `depth` of the refractor below the zero level at x, smooth
    /// and less steep than 45 degrees. Waves are followed between `from` and `to`.
    UndulatingEarth(double layer_velocity, double refractor_velocity, std::function<double(double)> depth,
                    double from, double to);

    double Depth(double x) const { return DepthAt(x); }
    /// Times in ms of the first arrivals of a shot at the receivers, all points in the layer. Nodes of the
    /// refractor lie so close that the times are exact to 0.001 ms.
    std::vector<double> First_Arrivals(SectionPoint shot, const std::vector<SectionPoint>& receivers) const;

  private:
    double Through_Layer(SectionPoint from, SectionPoint to) const;

    double LayerVelocity;
    double RefractorVelocity;
    std::function<double(double)> DepthAt;
    std::vector<SectionPoint> Nodes;
};

}  // namespace tarnvik
