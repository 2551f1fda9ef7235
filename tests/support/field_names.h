#pragma once

#include <string_view>

#include "core/awaited_field.h"

namespace tarnvik::test {

/// The field of a name such as "V2A", "IT1B" or "CD4A".
inline AwaitedField Field(std::string_view name) {
    using Family = AwaitedField::Family;
    const Family family = name[0] == 'V'   ? Family::Velocity
                          : name[0] == 'I' ? Family::Intercept
                                           : Family::CriticalDistance;
    return {family, name[name.size() - 2] - '0',
            name.back() == 'A' ? AwaitedField::Side::A : AwaitedField::Side::B};
}

}  // namespace tarnvik::test
