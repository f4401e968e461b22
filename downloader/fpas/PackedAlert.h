#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "downloader/fpas/Alert.h"

namespace fpas {

// Returns the alert in the compact form that is kept in the cache.
std::string PackAlert(const Alert& alert);

// Returns the alert that was packed; nullopt if the text is damaged.
std::optional<Alert> UnpackAlert(std::string_view text);

}  // namespace fpas
