// What the tests see and do inside Wine: what another process can learn of a Windows program and do
// to it. Each command prints lines of fields separated by tabs; \n, \r, \t and \\ are escaped in
// texts.
//
//   windows                                the visible windows and what is in them; the text of a
//                                          list is its entries
//   send CLASS MESSAGE WPARAM LPARAM       SendMessage; MESSAGE is a number or a registered name
//   post CLASS MESSAGE WPARAM LPARAM ...   PostMessage, for each three
//   forget-icon CLASS                      takes the window's icon out of the taskbar
//   counts CLASS                           what the window's process holds
//   texts KEY                              the texts of the user's registry one level below the
//                                          key: subkey, name, text
//   folders                                the user's temporary and application data folders
//   rows TITLE                             the rows of the window's list: "selected" or nothing,
//                                          icon, texts
//   run PROGRAM [COMMANDLINE]              starts it, by its path alone where there is no command
//                                          line, and waits for its end
//   hold FILE SECONDS                      keeps the file to itself for so long
//   catch ADDRESS                          as the browser: notes the address in opened.txt
//   serve                                  runs commands from the standard input, one a line with
//                                          its words separated by tabs; a line "." ends each answer
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>
#include <string_view>
#include <vector>

#include "tests/HandleCounts.h"
#include "tests/TrayIconWindow.h"
#include "win/Files.h"
#include "win/Handle.h"
#include "win/CodePage.h"

namespace {

std::string Escaped(const std::string& text) {
    constexpr std::string_view plain = "\n\r\t\\", letters = "nrt\\";
    std::string result;
    for (const char c : text) {
        const std::size_t found = plain.find(c);
        result += found == plain.npos ? std::string(1, c) : std::string{'\\', letters[found]};
    }
    return result;
}

void Print(const std::string& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()),
              &written, nullptr);
}

// A hung program must not hang the test: the answer is waited for with a limit.
int Ask(HWND window, UINT message, WPARAM wParam = 0, const wchar_t* text = nullptr) {
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, wParam, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                        2000, &result);
    return static_cast<int>(result);
}

std::wstring TextOf(HWND window, const std::wstring& className) {
    wchar_t text[4096] = L"";
    if (className != L"ListBox" && className != L"ComboLBox") {
        Ask(window, WM_GETTEXT, std::size(text), text);
        return text;
    }
    std::wstring entries;
    const int count = Ask(window, LB_GETCOUNT);
    for (int i = 0; i < count; ++i) {
        Ask(window, LB_GETTEXT, static_cast<WPARAM>(i), text);
        entries += (i ? L"\n" : L"") + std::wstring(text);
    }
    return entries;
}

BOOL CALLBACK PrintWindow(HWND window, LPARAM top) {
    if (!IsWindowVisible(window)) return TRUE;
    wchar_t className[256] = L"";
    GetClassNameW(window, className, std::size(className));
    RECT place{};
    GetWindowRect(window, &place);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    const bool ticked = !std::wcscmp(className, L"Button") && Ask(window, BM_GETCHECK);
    const std::string name = win::ToUtf8(className);
    const bool isIcon = std::ranges::count(tests::kTrayIconClasses, name) > 0;
    char numbers[160];
    std::snprintf(numbers, sizeof numbers, "%ld\t%lu\t%ld\t%ld\t%ld\t%ld\t%d\t%d\t%d\t%d\t",
                  static_cast<long>(top), process, place.left, place.top, place.right, place.bottom,
                  IsWindowEnabled(window), ticked, isIcon, GetDlgCtrlID(window));
    Print(numbers + Escaped(name) + "\t" + Escaped(win::ToUtf8(TextOf(window, className))) + "\n");
    if (!top) EnumChildWindows(window, PrintWindow, reinterpret_cast<LPARAM>(window));
    return TRUE;
}

HWND FindByClass(const char* className) {
    const HWND window = FindWindowA(className, nullptr);
    if (!window) std::exit(3);
    return window;
}

// Takes a program's icon out of the taskbar behind its back.
void ForgetIcon(const char* className) {
    NOTIFYICONDATAA icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = FindByClass(className);
    icon.uID = 1;
    Shell_NotifyIconA(NIM_DELETE, &icon);
}

UINT MessageNumber(const char* text) {
    char* end = nullptr;
    const UINT number = std::strtoul(text, &end, 0);
    return *end ? RegisterWindowMessageA(text) : number;
}

void Send(char** arguments) {
    DWORD_PTR result = 0;
    const auto lParam = static_cast<LPARAM>(std::strtoul(arguments[3], nullptr, 0));
    if (!SendMessageTimeoutA(FindByClass(arguments[0]), MessageNumber(arguments[1]),
                             std::strtoul(arguments[2], nullptr, 0), lParam, SMTO_NORMAL, 10000,
                             &result))
        std::exit(4);
    Print(std::to_string(result) + "\n");
}

// Posts each MESSAGE WPARAM LPARAM in turn.
void Post(int count, char** arguments) {
    const HWND window = FindByClass(arguments[0]);
    for (int i = 1; i + 2 < count; i += 3) {
        const auto lParam = static_cast<LPARAM>(std::strtoul(arguments[i + 2], nullptr, 0));
        PostMessageA(window, MessageNumber(arguments[i]),
                     std::strtoul(arguments[i + 1], nullptr, 0), lParam);
    }
}

void PrintCounts(const char* className) {
    DWORD identifier = 0;
    GetWindowThreadProcessId(FindByClass(className), &identifier);
    const HANDLE process =
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, identifier);
    const int gdi = tests::GdiHandlesInUse(process);
    CloseHandle(process);
    Print(std::to_string(tests::KernelHandlesInUse(identifier)) + "\t" + std::to_string(gdi) +
          "\t" + std::to_string(tests::UserHandlesInUse()) + "\n");
}

// The list answers into its own process's memory.
void PrintRows(const char* title) {
    const HWND window = FindWindowA(nullptr, title);
    const HWND list = window ? FindWindowExA(window, nullptr, WC_LISTVIEWA, nullptr) : nullptr;
    if (!list) std::exit(3);
    struct Exchange {
        LVITEMW item;
        wchar_t text[1024];
    } exchange{};
    DWORD identifier = 0;
    GetWindowThreadProcessId(list, &identifier);
    const HANDLE process =
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, identifier);
    auto* remote = static_cast<Exchange*>(
        VirtualAllocEx(process, nullptr, sizeof exchange, MEM_COMMIT, PAGE_READWRITE));
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const int columns = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    const int rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < rows; ++row) {
        std::string line =
            SendMessageW(list, LVM_GETITEMSTATE, row, LVIS_SELECTED) ? "selected" : "";
        for (int column = 0; column < columns; ++column) {
            exchange.item.mask = LVIF_TEXT | LVIF_IMAGE;
            exchange.item.iItem = row;
            exchange.item.iSubItem = column;
            exchange.item.pszText = remote->text;
            exchange.item.cchTextMax = std::size(exchange.text);
            WriteProcessMemory(process, remote, &exchange, sizeof exchange, nullptr);
            SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&remote->item));
            ReadProcessMemory(process, remote, &exchange, sizeof exchange, nullptr);
            if (column == 0) line += "\t" + std::to_string(exchange.item.iImage + 1);
            line += "\t" + Escaped(win::ToUtf8(exchange.text));
        }
        Print(line + "\n");
    }
    VirtualFreeEx(process, remote, 0, MEM_RELEASE);
    CloseHandle(process);
}

int StartProgram(const char* program, char* commandLine) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(program, commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        return 5;
    WaitForSingleObject(process.hProcess, INFINITE);
    return 0;
}

void PrintTexts(const char* path) {
    std::vector<wchar_t> text(1 << 20);
    wchar_t section[256], name[256];
    win::RegistryKey key, subkey;
    RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_READ, key.Receive());
    for (DWORD i = 0; RegEnumKeyW(key.Get(), i, section, 256) == ERROR_SUCCESS; ++i) {
        RegOpenKeyExW(key.Get(), section, 0, KEY_READ, subkey.Receive());
        for (DWORD n = 0;; ++n) {
            DWORD length = 256, size = text.size() * sizeof text[0], type = 0;
            if (RegEnumValueW(subkey.Get(), n, name, &length, nullptr, &type,
                              reinterpret_cast<BYTE*>(text.data()), &size) != ERROR_SUCCESS)
                break;
            if (type == REG_SZ)
                Print(Escaped(win::ToUtf8(section)) + "\t" + Escaped(win::ToUtf8(name)) + "\t" +
                      Escaped(win::ToUtf8(text.data())) + "\n");
        }
    }
}

// Appends the address, as it stands on the command line, in one write.
void Catch() {
    const std::wstring commandLine = GetCommandLineW();
    const std::string line =
        win::ToUtf8(commandLine.substr(commandLine.find(L" catch ") + 7)) + "\n";
    const HANDLE file =
        CreateFileA((win::ExecutableFolder() + "\\opened.txt").c_str(), FILE_APPEND_DATA,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

// Keeps a file to itself, as a virus scanner or a backup does.
void Hold(const char* path, const char* seconds) {
    const HANDLE file =
        CreateFileA(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) std::exit(3);
    Print("held\n");
    Sleep(1000 * std::strtoul(seconds, nullptr, 10));
}

int Run(int count, char** arguments) {
    const std::string command = count > 0 ? arguments[0] : "";
    if (command == "windows") {
        EnumWindows(PrintWindow, 0);
    } else if (command == "send" && count == 5) {
        Send(arguments + 1);
    } else if (command == "post" && count >= 5) {
        Post(count - 1, arguments + 1);
    } else if (command == "counts" && count == 2) {
        PrintCounts(arguments[1]);
    } else if (command == "forget-icon" && count == 2) {
        ForgetIcon(arguments[1]);
    } else if (command == "rows" && count == 2) {
        PrintRows(arguments[1]);
    } else if (command == "texts" && count == 2) {
        PrintTexts(arguments[1]);
    } else if (command == "folders") {
        Print(Escaped(std::getenv("TEMP")) + "\t" + Escaped(std::getenv("APPDATA")) + "\n");
    } else if (command == "run" && count >= 2) {
        return StartProgram(arguments[1], arguments[count - 1]);
    } else if (command == "hold" && count == 3) {
        Hold(arguments[1], arguments[2]);
    } else if (command == "catch") {
        Catch();
    } else {
        return 2;
    }
    return 0;
}

int Serve() {
    static char line[65536];
    while (std::fgets(line, sizeof line, stdin)) {
        std::vector<char*> words;
        for (char* word = std::strtok(line, "\t\n"); word; word = std::strtok(nullptr, "\t\n"))
            words.push_back(word);
        if (const int status = Run(static_cast<int>(words.size()), words.data())) return status;
        Print(".\n");
    }
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (count == 2 && std::string_view(arguments[1]) == "serve") return Serve();
    return Run(count - 1, arguments + 1);
}
