#include "app/commands.h"

namespace tarnvik {

std::span<const Command> Tables_Page_Commands() {
    return {};
}

}  // namespace tarnvik
