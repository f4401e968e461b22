#pragma once
// The program's version; also read by the resource compiler.
#define SKYVANE_MAJOR 1
#define SKYVANE_MINOR 0
#define SKYVANE_REVISION 2
#define SKYVANE_VERSION "1.0.2"
