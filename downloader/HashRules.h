#pragma once
#include <string>
#include <string_view>

namespace downloader {

// A text's fingerprint: 16 hexadecimal digits (FNV-1a). For telling texts apart, not for secrets.
std::string HashText(std::string_view text);

}  // namespace downloader
