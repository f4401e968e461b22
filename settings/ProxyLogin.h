#pragma once
#include <string>

// The proxy's user name and password, kept scrambled in the settings store.
namespace settings {

struct ProxyLogin {
    std::string userName;
    std::string password;
};

// What is stored, in plain text; a value that is not scrambled text reads as empty.
ProxyLogin ReadProxyLogin();

// Stores each scrambled; a text with a character that cannot be scrambled leaves the old value.
void SaveProxyUserName(const std::string& userName);
void SaveProxyPassword(const std::string& password);

}  // namespace settings
