#include "interpretation/forward_times.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <limits>
#include <mutex>
#include <thread>

namespace tarnvik {

namespace {

constexpr double room_beside = 0.02;  ///< of the length, left and right
constexpr double room_below = 0.15;   ///< of the greatest depth, below the deepest interface

/// The part of the section that the waves use.
GroundWindow Window_Of(const ForwardRequest& request) {
    GroundWindow window;
    window.Left = window.Bottom = std::numeric_limits<double>::infinity();
    window.Right = window.Top = -std::numeric_limits<double>::infinity();
    for (const auto* places : {&request.Shots, &request.Receivers}) {
        for (const LinePlace& place : *places) {
            window.Left = std::min(window.Left, place.X);
            window.Right = std::max(window.Right, place.X);
            window.Top = std::max(window.Top, place.Z);
            window.Bottom = std::min(window.Bottom, place.Z);
        }
    }
    const double length = std::max(window.Right - window.Left, 1e-6);
    window.Left -= room_beside * length;
    window.Right += room_beside * length;
    for (const LineValues::Knot& knot : request.Section.Ground.All()) {
        window.Top = std::max(window.Top, knot.Value);
        window.Bottom = std::min(window.Bottom, knot.Value);
    }
    for (const LineValues& line : request.Section.Interfaces) {
        for (const LineValues::Knot& knot : line.All())
            window.Bottom = std::min(window.Bottom, knot.Value);
    }
    const double depth = std::max(window.Top - window.Bottom, length / 100);
    window.Bottom -= room_below * depth;
    return window;
}

}  // namespace

ForwardResult First_Arrivals(const ForwardRequest& request, const ForwardProgress& progress) {
    ForwardResult result;
    result.Times.assign(request.Shots.size(), std::vector<double>(request.Receivers.size(), -1));
    if (request.Shots.empty() || request.Receivers.empty() || request.Section.Velocities.empty())
        return result;
    GroundWindow window = Window_Of(request);
    const double area = (window.Right - window.Left) * (window.Top - window.Bottom);
    result.Cell = std::sqrt(area / std::max(request.Nodes, 1000.0));
    window.Top += 2 * result.Cell;  // the square above the highest ground
    const SlownessGrid grid = Grid_Of_Section(request.Section, window, result.Cell);

    // By reciprocity the times are the same the other way round.
    const bool turned = request.Receivers.size() < request.Shots.size();
    const auto& sources = turned ? request.Receivers : request.Shots;
    const auto& targets = turned ? request.Shots : request.Receivers;
    std::atomic<std::size_t> next{0};
    std::atomic<bool> stop{false};
    std::mutex guard;
    std::condition_variable changed;
    std::size_t done = 0;
    std::size_t running = 0;
    const auto work = [&] {
        Eikonal eikonal(grid);
        for (std::size_t source = next++; source < sources.size() && !stop; source = next++) {
            const LinePlace& from = sources[source];
            const double near = request.Section.Distance_To_Interface(from.X, from.Z) - result.Cell;
            constexpr double farthest = 40;  // cells; further the marching is as exact, and quicker
            if (eikonal.Run(from.X, from.Z, std::clamp(near, 0.0, farthest * result.Cell))) {
                for (std::size_t target = 0; target < targets.size(); ++target) {
                    const double time = eikonal.Time_At(targets[target].X, targets[target].Z);
                    result.Times[turned ? target : source][turned ? source : target] = time;
                }
            }
            const std::lock_guard lock(guard);
            ++done;
            changed.notify_one();
        }
        const std::lock_guard lock(guard);
        --running;
        changed.notify_one();
    };
    const unsigned most =
        request.Threads > 0 ? request.Threads : std::max(1U, std::thread::hardware_concurrency());
    const auto count = std::min<std::size_t>(most, sources.size());
    running = count;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < count; ++i)
        threads.emplace_back(work);
    {
        std::unique_lock lock(guard);
        while (running > 0) {
            changed.wait_for(lock, std::chrono::milliseconds(50));
            const std::size_t so_far = done;
            lock.unlock();
            if (progress && !progress(so_far, sources.size())) stop = true;
            lock.lock();
        }
    }
    for (std::thread& thread : threads)
        thread.join();
    result.Stopped = stop && done < sources.size();
    return result;
}

}  // namespace tarnvik
