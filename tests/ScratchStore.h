#pragma once
#include <gtest/gtest.h>

#include <string>

#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "stations/StationList.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include "win/Handle.h"
#include "win/modRandomFile.h"

// A settings store and a data folder for one test. The INI file is in the folder of the test
// program and has its own user name.
namespace tests {

// A different user for each test, because the store caches the contents of an INI file.
inline std::string scratchUser;

inline std::string ScratchIniPath() {
    return win::ExecutableFolder() + "\\" + scratchUser + ".ini";
}

// Locks a file, as a virus scanner or a backup does.
inline win::FileHandle HoldFile(const std::string& path) {
    return win::FileHandle(CreateFileW(win::ToWide(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                       nullptr, OPEN_EXISTING, 0, nullptr));
}

class ScratchStore : public testing::TestWithParam<std::int16_t> {
  protected:
    void SetUp() override {
        static int number = 0;
        scratchUser = "scratch-user" + std::to_string(++number);
        Use(settings::kUseIniStore);
        settings::State() = settings::ProgramState();
        settings::State().programFolder = win::ExecutableFolder();
        settings::State().dataFolder = win::ExecutableFolder() + "\\scratch-data";
        win::MakeFolder(settings::State().dataFolder);
    }
    void TearDown() override {
        settings::StoreHeldSettings();
        for (const char* section : {"Options", "Misc", "Alerts"})
            settings::DeleteSettingSection(section);
        win::DeleteFileQuietly(ScratchIniPath());
        win::DeleteFolder(win::ExecutableFolder() + "\\scratch-data");
    }
    static void Use(std::int16_t store) {
        settings::UseIni = store;
        settings::IniUserName = store == settings::kUseIniStore ? scratchUser : "";
    }
    // Sets the station list to a station "Place CODE" for each code.
    static void UseStations(const std::vector<std::string>& codes) {
        std::vector<std::string> lines;
        for (const std::string& code : codes)
            lines.push_back(stations::MakeStationLine("Place " + code, {"id", code, "1", "2"}));
        ASSERT_TRUE(stations::WriteStationFile(lines, stations::StationFilePath()));
        stations::LoadStationList();
    }
    // Writes a document for the test and returns its path.
    static std::string WriteScratchFile(const std::string& text) {
        const std::string path = settings::State().dataFolder + "\\document.xml";
        EXPECT_TRUE(win::WriteFileAtomically(path, text));
        return path;
    }
};

}  // namespace tests
