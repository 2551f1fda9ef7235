#pragma once

#include <optional>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/grm_picture.h"
#include "traveltime/curve_pointer.h"

namespace tarnvik {

/// The picture in the modes "GRM" and "GRMV": the point under the pointer is lit with its curve and told.
class GrmPointer : public CurvePointerHandler {
  public:
    GrmPointer(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}
    void Move(const PointerEvent& event) override;
    void Leave() override;

  private:
    Workspace& Work;
    Ports& Outside;
    std::optional<GrmPlace> Lit;
};

}  // namespace tarnvik
