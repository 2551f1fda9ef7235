#pragma once

#include "output/exports/export_files.h"

namespace tarnvik {

/// Menu entry `DT`: the delay of each receiver, ms, one a line, in NAME_Delay.txt. Tells the file, or that
/// there is no delay.
ExportReport Export_Delay_List(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
