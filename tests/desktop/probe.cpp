// Observes and controls Windows programs for the tests from inside Wine. Each command prints lines
// of fields separated by tabs; \n, \r, \t and \\ are escaped.
//
//   windows                                visible windows and their descendants; a list's text
//                                          is its entries
//   send CLASS MESSAGE WPARAM LPARAM       SendMessage; MESSAGE is a number or a registered name
//   post CLASS MESSAGE WPARAM LPARAM ...   PostMessage for each group of three
//   forget-icon CLASS                      removes the window's icon from the taskbar
//   watch-icons                            one line for each change of an icon, until it is killed:
//                                          "balloon" if the change shows one, or "quiet"
//   counts CLASS                           kernel, GDI and user handles of the window's process
//   texts KEY                              strings in the user's registry one level below the key:
//                                          subkey, name, value
//   folders                                the user's temporary and application data folders
//   rows TITLE                             rows of the window's list: "selected" or "", icon, texts
//   type TITLE TEXT                        changes the text of the window's text box
//   run PROGRAM [COMMANDLINE]              starts the program and waits until it exits
//   hold FILE SECONDS                      locks the file
//   catch ADDRESS                          acts as the browser: appends the address to opened.txt
//   serve                                  reads commands from standard input, one per line, its
//                                          words separated by tabs; ends each answer with a line
//                                          "."
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

// Sends a message with a time limit, so that a hung program does not hang the test.
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
    const bool ticked = !std::wcscmp(className, L"Button") && Ask(window, BM_GETCHECK);
    const std::string name = win::FromWide(className);
    const bool isIcon = std::ranges::count(tests::kTrayIconClasses, name) > 0;
    char numbers[160];
    std::snprintf(numbers, sizeof numbers, "%ld\t%ld\t%ld\t%ld\t%ld\t%d\t%d\t%d\t%d\t",
                  static_cast<long>(top), place.left, place.top, place.right, place.bottom,
                  IsWindowEnabled(window), ticked, isIcon, GetDlgCtrlID(window));
    Print(numbers + Escaped(name) + "\t" + Escaped(win::FromWide(TextOf(window, className))) +
          "\n");
    if (!top) EnumChildWindows(window, PrintWindow, reinterpret_cast<LPARAM>(window));
    return TRUE;
}

HWND FindByClass(const char* className) {
    const HWND window = FindWindowA(className, nullptr);
    if (!window) std::exit(3);
    return window;
}

// Removes a program's icon from the taskbar without notifying the program.
void ForgetIcon(const char* className) {
    NOTIFYICONDATAA icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = FindByClass(className);
    icon.uID = 1;
    Shell_NotifyIconA(NIM_DELETE, &icon);
}

// Receives the changes of icons instead of the taskbar and forwards them to it.
LRESULT CALLBACK WatchIcon(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_COPYDATA) return DefWindowProcW(window, message, wParam, lParam);
    struct Change {  // the beginning of what Wine sends; the rest differs between its versions
        LONG window;
        UINT icon, flags;
    };
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    const auto* change = static_cast<const Change*>(data->lpData);
    if (data->dwData == NIM_ADD || data->dwData == NIM_MODIFY)
        Print(change->flags & NIF_INFO ? "balloon\n" : "quiet\n");
    return SendMessageW(reinterpret_cast<HWND>(GetWindowLongW(window, GWL_USERDATA)), message,
                        wParam, lParam);
}

void WatchIcons() {
    const wchar_t* const name = L"Shell_TrayWnd";
    const HWND taskbar = FindWindowW(name, nullptr);
    WNDCLASSW watcher{};
    watcher.lpfnWndProc = WatchIcon;
    watcher.lpszClassName = name;
    RegisterClassW(&watcher);
    const HWND window =
        CreateWindowW(name, nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongW(window, GWL_USERDATA, reinterpret_cast<LONG>(taskbar));
    Print("watching\n");
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
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
    const win::KernelHandle process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, identifier));
    Print(std::to_string(tests::KernelHandlesInUse(identifier)) + "\t" +
          std::to_string(tests::GdiHandlesInUse(process.Get())) + "\t" +
          std::to_string(tests::UserHandlesInUse()) + "\n");
}

// The list writes its answers into the memory of its own process.
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
            line += "\t" + Escaped(win::FromWide(exchange.text));
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

void Type(const char* title, const char* text) {
    const HWND window = FindWindowA(nullptr, title);
    const HWND box = window ? FindWindowExA(window, nullptr, WC_EDITA, nullptr) : nullptr;
    if (!box) std::exit(3);
    Ask(box, WM_SETTEXT, 0, win::ToWide(text).c_str());
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
                Print(Escaped(win::FromWide(section)) + "\t" + Escaped(win::FromWide(name)) + "\t" +
                      Escaped(win::FromWide(text.data())) + "\n");
        }
    }
}

// Appends the address to the file in one write.
void Catch() {
    const std::wstring commandLine = GetCommandLineW();
    const std::string line =
        win::FromWide(commandLine.substr(commandLine.find(L" catch ") + 7)) + "\n";
    const HANDLE file =
        CreateFileA((win::ExecutableFolder() + "\\opened.txt").c_str(), FILE_APPEND_DATA,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

// Locks a file, as a virus scanner or a backup does.
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
    } else if (command == "watch-icons") {
        WatchIcons();
    } else if (command == "rows" && count == 2) {
        PrintRows(arguments[1]);
    } else if (command == "texts" && count == 2) {
        PrintTexts(arguments[1]);
    } else if (command == "type" && count == 3) {
        Type(arguments[1], arguments[2]);
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
