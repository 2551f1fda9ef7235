#pragma once

#include <stdexcept>
#include <string>

namespace tarnvik {

/// A run-time fault of a computation: a division by zero, an element outside its array, a value too large for
/// its place. Routines that answer such a fault with a message catch it at their own edge; no public routine
/// lets it out.
class Fault : public std::runtime_error {
  public:
    explicit Fault(const std::string& what) : std::runtime_error(what) {}
};

/// Quotient of two numbers; dividing by zero is a Fault, never an infinity that would travel on into the
/// project.
inline double Divide(double dividend, double divisor) {
    if (divisor == 0) throw Fault("division by zero");
    return dividend / divisor;
}

}  // namespace tarnvik
