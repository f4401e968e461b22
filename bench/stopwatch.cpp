// The clock beside the programs that are measured: takes commands from its standard input, one a
// line, its fields apart by tabs, and answers each with one line, "failed" when the step did not
// come to its end.
//   start  PROGRAM  ARGUMENTS         starts it; milliseconds until its icon stands
//   end    WINDOW-CLASS               closes the started program and waits for its end
//   fetch  DL  FOLDER  ADDRESS...     dl.exe once per address, one after another; milliseconds
//   post   WINDOW-CLASS  COMMAND      posts a menu command to the window
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/TrayIconWindow.h"
#include "win/Files.h"
#include "win/Handle.h"
#include "win/Text.h"

namespace {

constexpr double kDeadline = 20000;  // milliseconds; then a start or an end has failed

double Now() {
    LARGE_INTEGER ticks;
    LARGE_INTEGER perSecond;
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&perSecond);
    return 1000.0 * static_cast<double>(ticks.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

// Milliseconds from `began` until the condition holds, looked at every 2 ms; -1 at the deadline.
template <class Condition>
double TimeUntil(double began, Condition holds) {
    while (!holds()) {
        if (Now() - began > kDeadline) return -1;
        Sleep(2);
    }
    return Now() - began;
}

win::KernelHandle Launch(const std::string& program, const std::string& arguments) {
    std::string commandLine = program + " " + arguments;
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &process))
        return {};
    CloseHandle(process.hThread);
    return win::KernelHandle(process.hProcess);
}

win::KernelHandle started;

bool IconStands() {
    return std::ranges::any_of(tests::kTrayIconClasses, [](const std::string& name) {
        return FindWindowA(name.c_str(), nullptr) != nullptr;
    });
}

double Start(const std::string& program, const std::string& arguments) {
    if (IconStands()) return -1;  // left over from another program
    const double began = Now();
    started = Launch(program, arguments);
    return started ? TimeUntil(began, IconStands) : -1;
}

double End(const std::string& windowClass) {
    const double began = Now();
    PostMessageA(FindWindowA(windowClass.c_str(), nullptr), WM_CLOSE, 0, 0);
    return TimeUntil(began, [] {
        return WaitForSingleObject(started.Get(), 0) == WAIT_OBJECT_0 && !IconStands();
    });
}

double Fetch(const std::string& dl, const std::string& folder,
             const std::vector<std::string>& addresses) {
    const std::string data = folder + "\\floor.data";
    const std::string status = folder + "\\floor.status";
    const double began = Now();
    for (const std::string& address : addresses) {
        const win::KernelHandle process = Launch(dl, address + "|" + data + "|" + status);
        if (!process || WaitForSingleObject(process.Get(), INFINITE) != WAIT_OBJECT_0) return -1;
        if (win::ReadWholeFile(status) != "0") return -1;
    }
    return Now() - began;
}

bool Post(const std::string& windowClass, const std::string& command) {
    return PostMessageA(FindWindowA(windowClass.c_str(), nullptr), WM_COMMAND,
                        std::strtoul(command.c_str(), nullptr, 10), 0);
}

double Run(const std::vector<std::string>& fields) {
    const std::string& command = fields[0];
    if (command == "start" && fields.size() == 3) return Start(fields[1], fields[2]);
    if (command == "end" && fields.size() == 2) return End(fields[1]);
    if (command == "fetch" && fields.size() > 3)
        return Fetch(fields[1], fields[2], {fields.begin() + 3, fields.end()});
    if (command == "post" && fields.size() == 3) return Post(fields[1], fields[2]) ? 0 : -1;
    return -1;
}

}  // namespace

int main() {
    static char line[65536];
    while (std::fgets(line, sizeof line, stdin)) {
        std::string text(line);
        while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
        if (text.empty()) continue;
        const double milliseconds = Run(win::Split(text, "\t"));
        if (milliseconds < 0)
            std::puts("failed");
        else
            std::printf("%.3f\n", milliseconds);
        std::fflush(stdout);
    }
    return 0;
}
