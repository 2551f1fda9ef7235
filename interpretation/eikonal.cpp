#include "interpretation/eikonal.h"

#include <algorithm>
#include <cmath>

namespace tarnvik {

namespace {

constexpr double least_ball = 3;  ///< cells

}  // namespace

Eikonal::Eikonal(const SlownessGrid& grid)
    : Grid(grid), Times(grid.Slowness.size()), Known(grid.Slowness.size()), Places(grid.Slowness.size()) {
    Heap.reserve(grid.Slowness.size() / 8);
}

double Eikonal::Ray(double x, double z) const {
    const double dx = x - SourceX;
    const double dz = z - SourceZ;
    const double length = std::hypot(dx, dz);
    const int steps = std::max(1, static_cast<int>(std::ceil(2 * length / Grid.Cell)));
    const auto nearest = [](double place, int count) {
        return std::clamp(static_cast<int>(std::lround(place)), 0, count - 1);
    };
    double slowness = 0;
    for (int i = 0; i < steps; ++i) {
        const double part = (i + 0.5) / steps;
        const int column = nearest((SourceX + part * dx - Grid.Left) / Grid.Cell, Grid.Columns);
        const int row = nearest((Grid.Top - SourceZ - part * dz) / Grid.Cell, Grid.Rows);
        const float here = Grid.Slowness[Grid.Node(column, row)];
        if (here < 0) return -1;
        slowness += here;
    }
    return length * slowness / steps;
}

bool Eikonal::Run(double x, double z, double ball) {
    std::fill(Times.begin(), Times.end(), unreached);
    std::fill(Known.begin(), Known.end(), static_cast<unsigned char>(0));
    std::fill(Places.begin(), Places.end(), -1);
    Heap.clear();
    SourceX = x;
    SourceZ = z;
    const double column = (x - Grid.Left) / Grid.Cell;
    const double row = (Grid.Top - z) / Grid.Cell;
    if (column < 0 || row < 0 || column > Grid.Columns - 1 || row > Grid.Rows - 1) return false;
    const double reach = std::max(least_ball, ball / Grid.Cell);
    Reach = reach * Grid.Cell;
    const int left = std::max(0, static_cast<int>(std::floor(column - reach)));
    const int right = std::min(Grid.Columns - 1, static_cast<int>(std::ceil(column + reach)));
    const int top = std::max(0, static_cast<int>(std::floor(row - reach)));
    const int bottom = std::min(Grid.Rows - 1, static_cast<int>(std::ceil(row + reach)));
    bool any = false;
    for (int r = top; r <= bottom; ++r) {
        for (int c = left; c <= right; ++c) {
            if (std::hypot(c - column, r - row) > reach) continue;
            const std::size_t node = Grid.Node(c, r);
            if (Grid.Slowness[node] < 0) continue;
            const double time = Ray(Grid.X(c), Grid.Z(r));
            if (time < 0) continue;
            Times[node] = static_cast<float>(time);
            Known[node] = 1;
            any = true;
        }
    }
    if (!any) return false;
    for (int r = top; r <= bottom; ++r) {
        for (int c = left; c <= right; ++c) {
            if (Known[Grid.Node(c, r)] != 0) Update(c, r);
        }
    }
    while (!Heap.empty()) {
        const std::size_t node = Pop();
        Known[node] = 1;
        Update(static_cast<int>(node % static_cast<std::size_t>(Grid.Columns)),
               static_cast<int>(node / static_cast<std::size_t>(Grid.Columns)));
    }
    return true;
}

/// The neighbours of a node whose time is known get times by it.
void Eikonal::Update(int column, int row) {
    constexpr int steps[4][2] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};
    for (const auto& step : steps) {
        const int c = column + step[0];
        const int r = row + step[1];
        if (c < 0 || r < 0 || c >= Grid.Columns || r >= Grid.Rows) continue;
        const std::size_t node = Grid.Node(c, r);
        if (Known[node] != 0 || Grid.Slowness[node] < 0) continue;
        const float time = Solve(c, r);
        if (time >= Times[node]) continue;
        Times[node] = time;
        if (Places[node] < 0) Push(node);
        Sift_Up(static_cast<std::size_t>(Places[node]));
    }
}

/// Time of a node by its known neighbours: along each axis the earlier side, with its own neighbour behind it
/// where that is known and earlier still.
float Eikonal::Solve(int column, int row) const {
    double square = 0;  // a T^2 - 2 b T + c = 0
    double linear = 0;
    double constant = 0;
    double least = unreached;
    const auto axis = [&](int place, int last, std::size_t node, std::size_t stride) {
        double best = unreached;
        double behind = unreached;
        for (const int side : {-1, 1}) {
            const int beside = place + side;
            if (beside < 0 || beside > last) continue;
            const std::size_t one = side < 0 ? node - stride : node + stride;
            if (Known[one] == 0 || Times[one] >= best) continue;
            best = Times[one];
            behind = unreached;
            const int beyond = beside + side;
            if (beyond < 0 || beyond > last) continue;
            const std::size_t two = side < 0 ? one - stride : one + stride;
            if (Known[two] != 0 && Times[two] <= best) behind = Times[two];
        }
        if (best >= unreached) return;
        const bool second = behind < unreached;
        const double weight = second ? 2.25 : 1;
        const double value = second ? (4 * best - behind) / 3 : best;
        square += weight;
        linear += weight * value;
        constant += weight * value * value;
        least = std::min(least, best);
    };
    const std::size_t node = Grid.Node(column, row);
    const double step = Grid.Slowness[node] * Grid.Cell;
    axis(column, Grid.Columns - 1, node, 1);
    const double one_square = square;
    const double one_linear = linear;
    const double one_least = least;
    axis(row, Grid.Rows - 1, node, static_cast<std::size_t>(Grid.Columns));
    const double root = linear * linear - square * (constant - step * step);
    if (square > 0 && root >= 0) {
        const double time = (linear + std::sqrt(root)) / square;
        // The front comes from both sides only when it passes the later of them first.
        if (time >= least) return static_cast<float>(time);
    }
    // One side alone.
    double time = unreached;
    if (one_square > 0) time = std::min(time, one_linear / one_square + step / std::sqrt(one_square));
    const double other_square = square - one_square;
    if (other_square > 0)
        time = std::min(time, (linear - one_linear) / other_square + step / std::sqrt(other_square));
    return static_cast<float>(std::max(time, one_least < unreached ? std::min(one_least, least) : least));
}

double Eikonal::Time_At(double x, double z) const {
    // Between the nodes around the source the front is too round to be interpolated.
    if (std::hypot(x - SourceX, z - SourceZ) < Reach) {
        if (const double time = Ray(x, z); time >= 0) return time;
    }
    const double column = std::clamp((x - Grid.Left) / Grid.Cell, 0.0, Grid.Columns - 1.0);
    const double row = std::clamp((Grid.Top - z) / Grid.Cell, 0.0, Grid.Rows - 1.0);
    const int c = std::min(static_cast<int>(column), Grid.Columns - 2);
    const int r = std::min(static_cast<int>(row), Grid.Rows - 2);
    double weights = 0;
    double sum = 0;
    for (int i = 0; i < 4; ++i) {
        const int at_column = c + i % 2;
        const int at_row = r + i / 2;
        const float time = Times[Grid.Node(at_column, at_row)];
        const double weight = (1 - std::abs(column - at_column)) * (1 - std::abs(row - at_row));
        if (time >= unreached || weight <= 0) continue;
        sum += weight * time;
        weights += weight;
    }
    return weights > 0 ? sum / weights : -1;
}

// A heap of nodes by their times; each node knows its place, so that an earlier time moves it up.

void Eikonal::Push(std::size_t node) {
    Places[node] = static_cast<int>(Heap.size());
    Heap.push_back(node);
}

void Eikonal::Sift_Up(std::size_t place) {
    const std::size_t node = Heap[place];
    const float time = Times[node];
    while (place > 0) {
        const std::size_t parent = (place - 1) / 2;
        if (Times[Heap[parent]] <= time) break;
        Heap[place] = Heap[parent];
        Places[Heap[place]] = static_cast<int>(place);
        place = parent;
    }
    Heap[place] = node;
    Places[node] = static_cast<int>(place);
}

void Eikonal::Sift_Down(std::size_t place) {
    const std::size_t node = Heap[place];
    const float time = Times[node];
    while (true) {
        std::size_t child = 2 * place + 1;
        if (child >= Heap.size()) break;
        if (child + 1 < Heap.size() && Times[Heap[child + 1]] < Times[Heap[child]]) ++child;
        if (Times[Heap[child]] >= time) break;
        Heap[place] = Heap[child];
        Places[Heap[place]] = static_cast<int>(place);
        place = child;
    }
    Heap[place] = node;
    Places[node] = static_cast<int>(place);
}

std::size_t Eikonal::Pop() {
    const std::size_t first = Heap.front();
    Places[first] = -1;
    Heap.front() = Heap.back();
    Heap.pop_back();
    if (!Heap.empty()) Sift_Down(0);
    return first;
}

}  // namespace tarnvik
