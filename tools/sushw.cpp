#include "tool_main.h"

int main(int argc, char** argv) {
    return tarnvik::Tool_Main("sushw", argc, argv);
}
