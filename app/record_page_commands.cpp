#include "app/commands.h"

namespace tarnvik {

std::span<const Command> Record_Page_Commands() {
    return {};
}

}  // namespace tarnvik
