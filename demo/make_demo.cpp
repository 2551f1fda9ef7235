// Writes the demo lines, demo1.tv5 with demo1.su and demo2.tv5, into a folder, or with --models the lines
// with the depths of their models below each geophone, model1.tv5 and model2.tv5.

#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "core/files.h"
#include "core/project_file.h"
#include "demo/demo_line.h"
#include "demo/demo_records.h"
#include "demo/undulating_line.h"

namespace {

bool Write(const std::string& path, const std::string& content) {
    const std::string reason = tarnvik::Replace_File(path, content);
    if (!reason.empty()) std::fprintf(stderr, "%s: %s\n", path.c_str(), reason.c_str());
    return reason.empty();
}

}  // namespace

int main(int argc, char** argv) {
    const bool models = argc == 3 && std::strcmp(argv[1], "--models") == 0;
    if (argc != 2 && !models) {
        std::fprintf(stderr, "usage: make_demo [--models] FOLDER\n");
        return 2;
    }
    try {
        const std::string folder = argv[argc - 1];
        if (models) {
            return Write(folder + "/model1.tv5", tarnvik::Project_Bytes(tarnvik::Demo_Model())) &&
                           Write(folder + "/model2.tv5",
                                 tarnvik::Project_Bytes(tarnvik::Undulating_Demo_Model()))
                       ? 0
                       : 1;
        }
        const tarnvik::Project project = tarnvik::Demo_Project();
        const bool written =
            Write(folder + "/demo1.tv5", tarnvik::Project_Bytes(project)) &&
            Write(folder + "/demo1.su", tarnvik::Demo_Records(project)) &&
            Write(folder + "/demo2.tv5", tarnvik::Project_Bytes(tarnvik::Undulating_Demo_Project()));
        return written ? 0 : 1;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 1;
    }
}
