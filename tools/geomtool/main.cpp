// SPDX-License-Identifier: MIT
#include "tools/geomtool/Tool.h"

int main(int argc, char** argv) {
    return geomtool::RunTool(argc, argv);
}
