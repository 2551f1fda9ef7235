#include "ui/running/own_tools.h"

namespace tarnvik {

std::string_view Own_Tool(const QString& name) {
    for (const std::string_view tool : own_tools) {
        const QString known = QString::fromLatin1(tool.data(), static_cast<qsizetype>(tool.size()));
        if (known.compare(name, Qt::CaseInsensitive) == 0) return tool;
    }
    return {};
}

}  // namespace tarnvik
