#include "output/velocity_grid.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "core/text/number.h"
#include "output/interface_curve.h"
#include "output/topo_rows.h"

namespace tarnvik {

namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

/// Interfaces of a place, the ground being interface 0: where they cut its column, and their velocities.
struct PlaceCorners {
    std::array<std::optional<InterfacePoint>, Project::MaxRefractors + 1> Corners;
    std::array<double, Project::MaxRefractors + 1> Velocities{};
};

/// Sets up one grid.
class GridBuilder {
  public:
    GridBuilder(const std::vector<SectionPlace>& places, const GridLayout& layout, SectionGrid& grid)
        : Places(places), Layout(layout), Grid(grid) {}

    void Build() {
        for (const SectionPlace& place : Places)
            Put_Place(place);
        for (std::size_t place = 0; place + 1 < Corners.size(); ++place) {
            for (std::size_t interface = 0; interface <= Project::MaxRefractors; ++interface) {
                if (Corners[place + 1].Corners[interface]) Join(interface, place, place + 1);
            }
        }
        Hand_Out_Cells();
        Bridge_Unknown_Places();
        Fill();
    }

  private:
    /// Cells of a column by their row from the top. Those above and below the grid are kept too: they tell
    /// the velocities of what cuts its edge.
    using ColumnCells = std::map<int, double>;

    void Set(int column, int row, double velocity) {
        if (column >= 1 && column <= Layout.GridColumns) Columns[At(column)][row] = velocity;
    }

    void Hand_Out_Cells() {
        for (int column = 1; column <= Layout.GridColumns; ++column) {
            for (const auto& [row, velocity] : Columns[At(column)]) {
                const int upward = Layout.GridRows - row;
                if (upward >= 1 && upward <= Layout.GridRows) Grid.VelocityGrid(column, upward) = velocity;
            }
        }
    }

    void Put_Place(const SectionPlace& place) {
        const int column = Section_Column(place.Distance, Layout.LineLength, Layout.GridColumns);
        const int ground = Section_Row(place.Elevation, Layout.MaxElevation);
        PlaceCorners& corners = Corners.emplace_back();
        std::array<std::string, Project::MaxLayers + 1>& texts = Grid.GridCorners.emplace_back();
        Grid.Factors.push_back(place.Factor);
        const auto put = [&](int interface, int row) {
            const double velocity = place.Velocities[At(interface) + 1];
            corners.Corners[At(interface)] = InterfacePoint{column, row};
            corners.Velocities[At(interface)] = velocity;
            texts[At(interface)] = CStr(column) + "," + CStr(row);
            Set(column, row, velocity);
        };
        put(0, ground);
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer) {
            const double depth = place.Depths[At(layer)];
            if (depth <= 0) continue;
            put(layer, ground + CInt_Or_Fault(4 * depth));
            if (layer == Project::MaxRefractors || place.Velocities[At(layer) + 2] == 0) break;
        }
    }

    /// Velocity at a corner: of the cell there, which a thinner layer may have taken over.
    double Velocity_At(std::size_t place, std::size_t interface) const {
        const InterfacePoint at = *Corners[place].Corners[interface];
        if (at.Column < 1) return Corners[place].Velocities[interface];
        return Columns[At(at.Column)].at(at.Row);
    }

    /// Points of an interface around two places, as far as it goes on without a gap, and which one the first
    /// place is.
    std::pair<std::vector<InterfacePoint>, std::size_t> Run_Of(std::size_t interface, std::size_t a,
                                                               std::size_t b) const {
        std::size_t from = a;
        while (from > 0 && Corners[from - 1].Corners[interface])
            --from;
        std::vector<InterfacePoint> points;
        for (std::size_t place = from; place <= a; ++place)
            points.push_back(*Corners[place].Corners[interface]);
        const std::size_t at = points.size() - 1;
        for (std::size_t place = b; place < Corners.size() && Corners[place].Corners[interface]; ++place)
            points.push_back(*Corners[place].Corners[interface]);
        return {std::move(points), at};
    }

    /// Row of the ground where the interface would rise above it.
    int Below_Ground(int column, int row) const {
        if (column < 0 || column >= static_cast<int>(Grid.TopoRows.size())) return row;
        const int ground = Grid.TopoRows[At(column)];
        return ground != 0 && row < ground ? ground : row;
    }

    /// The interface from one place to another. Each column gets what belongs to the next one's left edge:
    /// the first of them too, so that the place's own column has a second cell.
    void Join(std::size_t interface, std::size_t place, std::size_t next) {
        if (!Corners[place].Corners[interface]) return;
        const InterfacePoint a = *Corners[place].Corners[interface];
        const InterfacePoint b = *Corners[next].Corners[interface];
        if (b.Column <= a.Column) return;
        const double velocity = Velocity_At(place, interface);
        const double step = (Velocity_At(next, interface) - velocity) / (b.Column - a.Column);
        const bool smooth = Layout.Line == SectionLine::Bezier;
        const auto [points, at] =
            smooth ? Run_Of(interface, place, next) : std::pair<std::vector<InterfacePoint>, std::size_t>();
        for (int column = a.Column; column < b.Column; ++column) {
            const int columns = column - a.Column + 1;
            const double rise = smooth ? Smooth_Rise(points, at, columns) : Straight_Rise(a, b, columns);
            const int row = Below_Ground(column, a.Row + CInt_Or_Fault(rise));
            Set(column, row, velocity + step * columns);
        }
    }

    /// Interfaces across places whose depths are missing: a single geophone without a delay leaves no hole.
    void Bridge_Unknown_Places() {
        for (std::size_t interface = 1; interface <= Project::MaxRefractors; ++interface) {
            std::optional<std::size_t> before;
            for (std::size_t place = 0; place < Corners.size(); ++place) {
                if (Corners[place].Corners[interface]) {
                    if (before && *before + 1 < place) Join(interface, *before, place);
                    before = place;
                } else if (Places[place].Known) {
                    before.reset();
                }
            }
        }
    }

    /// First and last column that depths are known in; all between the places where none are.
    std::pair<int, int> Known_Columns() const {
        int first = Layout.GridColumns + 1;
        int last = 0;
        const bool any =
            std::any_of(Places.begin(), Places.end(), [](const SectionPlace& place) { return place.Known; });
        for (std::size_t place = 0; place < Places.size(); ++place) {
            if (any && !Places[place].Known) continue;
            first = std::min(first, Corners[place].Corners[0]->Column);
            last = std::max(last, Corners[place].Corners[0]->Column);
        }
        return {std::max(first, 1), last};
    }

    void Fill() {
        const auto [first, last] = Known_Columns();
        for (int column = first; column <= last; ++column)
            Fill_Column(column);
    }

    /// Downward from the ground with the velocity of the cell above. The straight ground between two places
    /// may lie below the true one: its layer begins there.
    void Fill_Column(int column) {
        double velocity = 0;
        int from = std::max(Grid.TopoRows[At(column)], 0);
        const auto fill_to = [&](int end) {
            for (; from < std::min(end, Layout.GridRows); ++from)
                Grid.Filled(column, Layout.GridRows - from) = velocity;
        };
        for (const auto& [row, here] : Columns[At(column)]) {
            if (here == 0) continue;
            if (velocity != 0) fill_to(row);
            velocity = here;
        }
        fill_to(Layout.GridRows);
    }

    const std::vector<SectionPlace>& Places;
    const GridLayout& Layout;
    SectionGrid& Grid;
    std::vector<PlaceCorners> Corners;
    std::vector<ColumnCells> Columns = std::vector<ColumnCells>(At(Layout.GridColumns) + 1);
};

}  // namespace

int Grid_Rows(double max_elevation, double min_elevation) {
    const int rows = CInt_Or_Fault(4 * Int(1 + max_elevation - min_elevation));
    if (rows < 4) throw Fault("the minimum elevation lies above the maximum");
    return rows;
}

SectionGrid Grid_Of_Places(const std::vector<SectionPlace>& places, const GridLayout& layout,
                           std::vector<int> topo_rows) {
    SectionGrid grid;
    grid.GridColumns = layout.GridColumns;
    grid.GridRows = layout.GridRows;
    grid.MaxElevation = layout.MaxElevation;
    grid.MinElevation = layout.MinElevation;
    grid.VelocityGrid = Array2<double>(layout.GridColumns, layout.GridRows);
    grid.Filled = grid.VelocityGrid;
    grid.TopoRows = std::move(topo_rows);
    GridBuilder(places, layout, grid).Build();
    return grid;
}

}  // namespace tarnvik
