#pragma once

#include <optional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// What lies under a place of the record's picture: time, trace, receiver, distance, offset, amplitude and
/// the pick of the trace. Nothing outside the traces shown.
std::optional<std::string> Record_Read_Out(const Workspace& workspace, double x, double y);

/// The cross-hair through a place of the record's picture, where it is switched on; taken away where not.
void Show_Cross_Hair(const Workspace& workspace, Ports& ports, double x, double y);
void Hide_Cross_Hair(Ports& ports);
/// Command CrossHair.
void Switch_Cross_Hair(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
