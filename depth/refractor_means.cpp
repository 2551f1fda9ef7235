#include "depth/refractor_means.h"

#include "core/text/number.h"

namespace tarnvik {

double Mean_Of_Sides(double side_a, double side_b, double former) {
    double mean = former;
    if (side_a > 0 && side_b > 0) mean = (side_a + side_b) / 2;
    if (side_a == 0 && side_b > 0) mean = side_b;
    if (side_a > 0 && side_b == 0) mean = side_a;
    return Int(10 * mean) / 10;
}

void Moyenne_Intercept(const Project& project, int shot, int refractor, double& mean) {
    mean = Mean_Of_Sides(project.InterceptA(shot, refractor), project.InterceptB(shot, refractor), mean);
}

void Moyenne_Critique(const Project& project, int shot, int refractor, double& mean) {
    mean = Mean_Of_Sides(project.CritDistA(shot, refractor), project.CritDistB(shot, refractor), mean);
}

}  // namespace tarnvik
