// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Writes to the host debug log as a fresh process does. Tests put it into a folder with the modules
// that it is to find.
#include "modules/message_boxes.h"
#include "platform/host_debug_log.h"

#include <cstdio>

int main() {
    ogl::test::answerMessageBoxes();
    ogl::HostDebugLog& log = ogl::hostDebugLog();
    log.write(0, "d3_Create()",
              "d\xe9"
              "but",
              0);
    log.initialise();
    log.write(0, "d3_Create()", "fin avec succ\xe8s", 0);
    log.release();
    log.write(0, "after the release", "", 0);
    log.release();
    std::printf("done\n");
    return 0;
}
