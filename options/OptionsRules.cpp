#include "options/OptionsRules.h"

#include "settings/SettingKeys.h"
#include "win/Text.h"

namespace options {

std::string PageKey(std::string_view tabText) {
    return win::ReplaceAll(tabText, " ", "");
}

std::string QuotedWord(std::string_view word) {
    return std::string("\"").append(word).append("\"");
}

std::string JoinFilterWords(const std::vector<std::string>& entries) {
    return win::ReplaceAll(win::Join(entries, settings::kFilterSeparator), "\"", "");
}

std::string RemoveQuestion(std::string_view stationDisplayText) {
    return std::string("Are you sure you want to remove ''")
        .append(stationDisplayText)
        .append("''?");
}

std::string RestartMessage(bool inProgramFolder) {
    // Names the sibling product, on purpose.
    return std::string(
               "Skyvane Live must be restarted in order to make the necessary changes to begin "
               "storing your Skyvane Live user files in ")
        .append(inProgramFolder ? "the Skyvane Live program folder."
                                : "your Windows user profile.");
}

}  // namespace options
