#include "settings/ProxyLogin.h"

#include "settings/IniOpenSave.h"
#include "settings/Scramble.h"

namespace settings {
namespace {

void Save(const Setting& setting, const std::string& plain) {
    if (const auto scrambled = Scramble(plain)) WriteSetting(setting, *scrambled);
}

std::string Read(const Setting& setting) {
    return Unscramble(ReadSetting(setting)).value_or(std::string());
}

}  // namespace

ProxyLogin ReadProxyLogin() {
    return {Read(kProxyUsername), Read(kProxyPassword)};
}

void SaveProxyUserName(const std::string& userName) {
    Save(kProxyUsername, userName);
}

void SaveProxyPassword(const std::string& password) {
    Save(kProxyPassword, password);
}

}  // namespace settings
