#pragma once
#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <map>
#include <string>

#include "options/frmOptions.h"
#include "options/resource.h"
#include "tests/ScratchStore.h"
#include "tray/frmTray.h"
#include "tray/MinuteClock.h"
#include "tray/TrayWindow.h"
#include "win/CodePage.h"
#include "win/Dialog.h"
#include "win/ListItems.h"
#include "win/MessageLoop.h"

// Drives the Options dialog from inside its process.
namespace options {

using Act = std::function<void(HWND dialog)>;
inline Act act;

// Finds a control on any page.
inline HWND Find(HWND dialog, int control) {
    if (const HWND found = GetDlgItem(dialog, control)) return found;
    for (HWND page = GetWindow(dialog, GW_CHILD); page; page = GetWindow(page, GW_HWNDNEXT))
        if (const HWND found = GetDlgItem(page, control)) return found;
    return nullptr;
}

inline void Click(HWND dialog, int control) {
    SendMessageW(Find(dialog, control), BM_CLICK, 0, 0);
}

inline void Choose(HWND dialog, int control, const std::string& text) {
    const HWND combo = Find(dialog, control);
    const win::ListControl choice{combo, false};
    const int index = win::FindItem(choice, text);
    ASSERT_GE(index, 0) << text;
    win::SelectItem(choice, index);
    SendMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(control, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

inline void Type(HWND dialog, int control, const std::string& text) {
    SetWindowTextW(Find(dialog, control), win::ToWide(text).c_str());
}

inline bool CanApply(HWND dialog) {
    return IsWindowEnabled(Find(dialog, frmOptions_ApplyButton));
}

// Another program may show a dialog with the same title, so only this thread's windows count.
inline BOOL CALLBACK TakeOptionsDialog(HWND window, LPARAM found) {
    if (win::WindowText(window) == "Options - Skyvane Alerts" && IsWindowVisible(window))
        *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
}

inline HWND OptionsDialog() {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeOptionsDialog, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}

inline int answer = 0;
inline std::string typed;

inline BOOL CALLBACK AnswerQuestion(HWND window, LPARAM owner) {
    if (GetWindow(window, GW_OWNER) != reinterpret_cast<HWND>(owner) || !IsWindowVisible(window))
        return TRUE;
    if (const HWND box = GetDlgItem(window, InputBox_Text))
        SetWindowTextW(box, win::ToWide(typed).c_str());
    SendMessageW(window, WM_COMMAND, static_cast<WPARAM>(answer), 0);
    return TRUE;
}

inline void CALLBACK AnswerQuestions(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), AnswerQuestion,
                      reinterpret_cast<LPARAM>(OptionsDialog()));
}

// Clicks a control and answers every message or input box that it opens by pressing `button`.
inline void ClickAndAnswer(HWND dialog, int control, int button, const std::string& text = {}) {
    answer = button;
    typed = text;
    const UINT_PTR timer = SetTimer(nullptr, 0, 1, AnswerQuestions);
    Click(dialog, control);
    KillTimer(nullptr, timer);
}

inline void CALLBACK RunAct(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND dialog = OptionsDialog();
    if (!dialog) return;
    KillTimer(nullptr, timer);
    act(dialog);
    if (IsWindow(dialog)) Click(dialog, frmOptions_Command2);
}

// Opens the dialog, runs `what` on it, and cancels it if it is still open.
inline void WithDialog(Act what) {
    act = std::move(what);
    SetTimer(nullptr, 0, 1, RunAct);
    ShowOptionsDialog();
}

template <class FindWindow>
void PumpUntilEnabled(FindWindow find) {
    for (int i = 0; i < 50 && !IsWindowEnabled(find()); ++i) win::PumpOrWait(100);
}

class OptionsFormTest : public tests::ScratchStore {
  protected:
    void SetUp() override {
        ScratchStore::SetUp();
        ASSERT_TRUE(tray::LoadTrayWindow());
        settings::WriteSetting(settings::kLastOption, "General");
    }
    void TearDown() override {
        tray::StopMinuteClock();
        DestroyWindow(tray::TrayWindow());
        ScratchStore::TearDown();
    }
    static std::map<std::string, std::string> Stored() {
        return *settings::ReadSection(settings::kOptions);
    }
};

}  // namespace options
