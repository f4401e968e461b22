// Starts, drives and times programs inside Wine. Reads commands from standard input, one per line
// with fields separated by tabs, and answers each with a line: milliseconds, or "failed".
//   start  PROGRAM  ARGUMENTS         starts the program; the time until its icon appears
//   end    WINDOW-CLASS               closes the started program and waits until it exits
//   fetch  DL  FOLDER  ADDRESS...     runs dl.exe for each address in turn
//   post   WINDOW-CLASS  COMMAND      posts a menu command to the window
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/Stopwatch.h"
#include "tests/TrayIconWindow.h"
#include "win/Files.h"
#include "win/Handle.h"
#include "win/Text.h"

namespace {

constexpr double kTimeout = 20000;  // milliseconds for a start or an end

// Polls the condition every 2 ms. Returns the milliseconds since `began`, or -1 after the timeout.
template <class Condition>
double TimeUntil(double began, Condition holds) {
    while (!holds()) {
        if (bench::Milliseconds() - began > kTimeout) return -1;
        Sleep(2);
    }
    return bench::Milliseconds() - began;
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

bool IsIconShown() {
    return std::ranges::any_of(tests::kTrayIconClasses, [](const std::string& name) {
        return FindWindowA(name.c_str(), nullptr) != nullptr;
    });
}

double Start(const std::string& program, const std::string& arguments) {
    if (IsIconShown()) return -1;  // of another program
    const double began = bench::Milliseconds();
    started = Launch(program, arguments);
    return started ? TimeUntil(began, IsIconShown) : -1;
}

double End(const std::string& windowClass) {
    const double began = bench::Milliseconds();
    PostMessageA(FindWindowA(windowClass.c_str(), nullptr), WM_CLOSE, 0, 0);
    return TimeUntil(began, [] {
        return WaitForSingleObject(started.Get(), 0) == WAIT_OBJECT_0 && !IsIconShown();
    });
}

double Fetch(const std::string& dl, const std::string& folder,
             const std::vector<std::string>& addresses) {
    const std::string data = folder + "\\baseline.data";
    const std::string status = folder + "\\baseline.status";
    const double began = bench::Milliseconds();
    for (const std::string& address : addresses) {
        const win::KernelHandle process = Launch(dl, address + "|" + data + "|" + status);
        if (!process || WaitForSingleObject(process.Get(), INFINITE) != WAIT_OBJECT_0) return -1;
        if (win::ReadWholeFile(status) != "0") return -1;
    }
    return bench::Milliseconds() - began;
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
