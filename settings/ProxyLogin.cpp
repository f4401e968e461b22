#include "settings/ProxyLogin.h"

#include "settings/IniOpenSave.h"
#include "settings/Scramble.h"

namespace settings {
namespace {

bool Save(const Setting& setting, const std::string& plain) {
    const auto scrambled = Scramble(plain);
    if (scrambled) WriteSetting(setting, *scrambled);
    return scrambled.has_value();
}

std::string Read(const Setting& setting) {
    return Unscramble(ReadSetting(setting)).value_or(std::string());
}

}  // namespace

ProxyLogin ReadProxyLogin() {
    return {Read(kProxyUsername), Read(kProxyPassword)};
}

bool SaveProxyUserName(const std::string& userName) {
    return Save(kProxyUsername, userName);
}

bool SaveProxyPassword(const std::string& password) {
    return Save(kProxyPassword, password);
}

}  // namespace settings
