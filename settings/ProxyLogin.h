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

// Store one of the two. Return false if the text cannot be scrambled, which leaves the old value.
bool SaveProxyUserName(const std::string& userName);
bool SaveProxyPassword(const std::string& password);

}  // namespace settings
