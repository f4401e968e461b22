#pragma once
// The program's name and version; also read by the resource compiler and the packaging.
#define SKYVANE_NAME "Skyvane Alerts"
#define SKYVANE_MAJOR 1
#define SKYVANE_MINOR 0
#define SKYVANE_REVISION 2
#define SKYVANE_VERSION "1.0.2"
