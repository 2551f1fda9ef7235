#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "depth/shot_values.h"
#include "depth/true_velocity.h"
#include "traveltime/file_routines.h"

namespace tarnvik {

/// Dialog "Depth Computation": velocities, intercept times and critical distances of one shot after the
/// other, and the thicknesses that follow from them. Takes values from the picture in mode "Calcul".
///
/// Rows count from 1; velocity rows are layers 1 to 5, all others refractors 1 to 4 (the top of layer row +
/// 1):
///
///   VelocityA     Text2  Text3  Text4  Text5  Text6      VelocityB     Text7  Text8  Text9  Text10 Text11
///   TrueV         Text12 Text13 Text14 Text15 Text16
///   InterceptA    Text31 Text37 Text39 Text41            InterceptB    Text36 Text38 Text40 Text42
///   CritDistA     Text44 Text46 Text48 Text50            CritDistB     Text45 Text47 Text49 Text51
///   MeanIntercept Text17 Text18 Text19 Text20            MeanCritDist  Text22 Text23 Text24 Text25
///   Thick         Text27 Text28 Text29 Text30            Depth         Text32 Text33 Text34 Text35
class Fcalcul {
  public:
    using LayerTexts = std::array<std::string, Project::MaxLayers + 1>;
    using RefractorTexts = std::array<std::string, Project::MaxRefractors + 1>;

    Fcalcul(Workspace& workspace, Ports& ports, FileRoutines files = {});

    LayerTexts VelocityA, VelocityB, TrueV;
    RefractorTexts InterceptA, InterceptB, MeanIntercept;
    RefractorTexts CritDistA, CritDistB, MeanCritDist;
    RefractorTexts Thick, Depth;
    std::string Altitude;    ///< Text1, elevation of the shot
    std::string Layers;      ///< Text21, number of layers
    std::string ShotDepth;   ///< Text26
    std::string ShotLabel;   ///< Text52 and Text53, number of the shot
    std::string OffsetText;  ///< Text43, red; hidden while empty
    std::string Caption;     ///< caption line: the method computed last
    std::string Label17;     ///< line ends
    std::string Label18;
    ScrollBar HScroll1{1, 1, 1};  ///< "Shot change"
    bool Check1 = false;          ///< "Auto save"
    bool Unsaved = false;         ///< Command4 is red
    bool Computed = false;        ///< the last method went through: the result fields are of this shot
    int VisibleLayers = 2;        ///< velocity rows up to it are shown, refractor rows below it

    void Load();   ///< the form opens
    void Close();  ///< the form closes

    /// A field that the picture can fill got the focus; one that does not exist is passed over.
    void Enter_Field(AwaitedField field);
    void Enter_Mean_Field();  ///< one of MeanIntercept, MeanCritDist; it refuses the focus
    void Field_Changed();     ///< the user typed into a field
    void Layers_Changed();    ///< Text21
    void HScroll1_Changed();  ///< another shot
    /// Shows a shot without computing. False for an offset shot, which has no depth, and without any shot.
    bool Display_Shot(int shot);
    void Command1();  ///< "&Intercept T"
    void Command2();  ///< "Refresh"
    void Command3();  ///< "&Critic. Dist."
    void Command4();  ///< "&Save  "

    /// The velocity field of the layer below a field, on the same side; its row is shown when it was not.
    /// Nothing below the deepest layer.
    std::optional<AwaitedField> Next_Layer(AwaitedField field);

    /// The fields of the shot displayed into the project. Thicknesses only while some are shown: empty ones
    /// leave what the project holds.
    void Enregistre_Tir();
    /// Intercept-time method for the shot displayed. The project stays as it is.
    void Calcul_Par_Intercept();

    /// The text of a field; null for one that does not exist.
    std::string* Field_Of(AwaitedField field);
    /// Number of the shot displayed, 0 when there is none and for an offset shot.
    int Shot() const;
    bool End_Shot() const;

  private:
    enum class Results { Shown, Empty };
    /// Takes the fields into Values; thicknesses as shown, or else as the project holds them.
    void Take_Fields();
    /// All fields from Values, where a shot without velocities gets the usual ones, and the results in
    /// workspace.Depth or empty ones. A thickness too large to be shown is a Fault.
    void Affiche_Tir(Results results);
    /// True velocities and critical angles from the fields. A ratio of velocities of 1 or more is a Fault.
    void VitesseVraie();
    void Take_Picture();
    void Display_Only();
    void Show_Stored_Thicknesses();
    void Store(const std::string& edit_name, const ShotValues& values);
    std::string Named_By_Shot(const std::string& what) const;
    void Empty_Results();
    void Empty_Fields();
    void Empty_Rows();
    void Show_Side_Rows(int layers);
    void Show_Results(int layers);
    void Compute_By_Intercept();
    void Compute_By_Critical_Distance(std::optional<ShotValues>& to_store);
    bool Intercepts_In_Order(int layers);
    bool Correct_Intercept(int refractor);
    bool Refused_As_Offset_Shot();
    bool No_Data(bool both_sides) const;
    void Save();
    void Say(const std::string& text, Icon icon = Icon::None);

    Workspace& Work;
    Ports& Outside;
    FileRoutines Files;
    ShotValues Values;          ///< of the shot displayed, as they would be stored
    bool ResultsShown = false;  ///< thickness fields hold what belongs to the shot displayed
    bool Corrected = false;     ///< the user has corrected an intercept that was asked for
};

}  // namespace tarnvik
