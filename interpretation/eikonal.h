#pragma once

#include <cstddef>
#include <vector>

namespace tarnvik {

/// Slowness at the nodes of a grid of squares, row 0 on top; ms per unit of length. A node that is no ground
/// has `no_ground`: no wave goes through it.
struct SlownessGrid {
    static constexpr float no_ground = -1;

    int Columns = 0;
    int Rows = 0;
    double Left = 0;  ///< distance of column 0
    double Top = 0;   ///< elevation of row 0
    double Cell = 1;  ///< from node to node, both ways
    std::vector<float> Slowness;

    std::size_t Node(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(Columns) +
               static_cast<std::size_t>(column);
    }
    double X(int column) const { return Left + column * Cell; }
    double Z(int row) const { return Top - row * Cell; }
};

/// Solves |grad T| = slowness for the first arrivals of one source after the other, by fast marching with
/// second-order upwind differences (Sethian, J. A., 1996, A fast marching level set method for monotonically
/// advancing fronts, Proc. Nat. Acad. Sci. 93; second order after Rickett, J. and Fomel, S., 1999, A second-
/// order fast marching eikonal solver, Stanford Exploration Project 100). Around the source, where the front
/// is curved most, the times are those of the straight ray. The memory is that of one source.
class Eikonal {
  public:
    /// The grid must outlive the solver.
    explicit Eikonal(const SlownessGrid& grid);

    /// Times of all nodes from a source at (x, z). Straight rays reach `ball` units far, at least a few
    /// cells; a good choice is the distance to the nearest change of slowness. False where the source lies
    /// outside of the grid or in no ground.
    bool Run(double x, double z, double ball);

    /// Time at a place, ms, interpolated between the nodes around it that a wave has reached; negative where
    /// there is none.
    double Time_At(double x, double z) const;
    /// Time at a node, ms; `unreached` where no wave came.
    float Time(int column, int row) const { return Times[Grid.Node(column, row)]; }
    static constexpr float unreached = 1e30F;

  private:
    /// Along the straight ray from the source; negative where it leaves the ground.
    double Ray(double x, double z) const;
    void Update(int column, int row);
    float Solve(int column, int row) const;
    void Push(std::size_t node);
    void Sift_Up(std::size_t place);
    void Sift_Down(std::size_t place);
    std::size_t Pop();

    const SlownessGrid& Grid;
    std::vector<float> Times;
    std::vector<unsigned char> Known;  ///< the time will not change any more
    std::vector<std::size_t> Heap;     ///< nodes at the front, the earliest first
    std::vector<int> Places;           ///< of each node in the heap; -1 outside
    double SourceX = 0;
    double SourceZ = 0;
    double Reach = 0;  ///< of the straight rays, units
};

}  // namespace tarnvik
