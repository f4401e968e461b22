#pragma once
#include <string>

// The proxy's user name and password, stored scrambled.
namespace settings {

struct ProxyLogin {
    std::string userName;
    std::string password;
};

// Returns the stored login in plain text; a value that is not scrambled text reads as empty.
ProxyLogin ReadProxyLogin();

// Store one of the two. A text that cannot be scrambled leaves the old value.
void SaveProxyUserName(const std::string& userName);
void SaveProxyPassword(const std::string& password);

}  // namespace settings
