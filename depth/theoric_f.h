#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/theoretic_branches.h"

namespace tarnvik {

/// Dialog "Tarnvik Theoric travel time": the straight branches of plane layers over the curves, to compare a
/// model with the picks. The branches drawn stand until they are cleared, so that models can be compared in
/// different colours. Changes nothing of the project.
class TheoricF {
  public:
    /// One text a layer, elements 1 to 5.
    using LayerTexts = std::array<std::string, Project::MaxLayers + 1>;

    TheoricF(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

    std::string ShotLocation;  ///< Text1
    std::string ShotDepth;     ///< Text2
    LayerTexts Velocity;       ///< Text3
    LayerTexts Thickness;      ///< Text4
    LayerTexts Depth;          ///< Text5, of the layer's lower boundary
    int LineType = 0;          ///< Option1 black, Option2 red, Option3 blue

    // What the last drawing gave.
    int NbLayers = 0;
    std::vector<double> IT;             ///< what each refractor adds to the intercept times, ms
    std::vector<CurveBranch> Branches;  ///< without the shot's vertical line

    void Load();   ///< the form opens
    void Close();  ///< the form closes
    void Row_Changed();
    /// The model that the project holds for the shot on hand: true velocities and thicknesses.
    void Take_Model();
    /// Number of that shot, 0 without one.
    int Shot_On_Hand() const;
    void Command2();  ///< "Draw"
    void Command3();  ///< "Clear"

  private:
    /// A model on the picture; its branches follow the time scale in force.
    struct Drawing {
        PlaneLayers Layers;
        double Shot = 0;
        double HalfShotDepth = 0;
        Colour InColour = colours::Black;
        bool operator==(const Drawing&) const = default;
    };
    Drawing Read_Fields() const;
    bool Compute(const Drawing& model);
    std::vector<CurveBranch> Branches_Of(const Drawing& model) const;
    void Draw_Models(Picture& picture) const;
    void Forget_Result();

    Workspace& Work;
    Ports& Outside;
    std::vector<Drawing> Drawn;
};

}  // namespace tarnvik
