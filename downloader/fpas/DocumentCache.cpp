#include "downloader/fpas/DocumentCache.h"

#include <utility>

#include "downloader/fpas/PackedAlert.h"
#include "downloader/http/ResponseCache.h"
#include "win/Text.h"

namespace fpas {
namespace {

constexpr std::string_view kPrefix = "alert-";
constexpr std::string_view kUnreadable = "unreadable";

// Each document has a cache file of its own. Files of Windows are the same in upper and lower case.
std::string SlotOf(const std::string& identifier) {
    return std::string(kPrefix).append(win::AsciiLower(identifier));
}

}  // namespace

std::optional<Document> FindDocument(const std::string& identifier, const std::string& address) {
    const auto cached = http::FindCached(address, SlotOf(identifier));
    if (!cached) return std::nullopt;
    Document document{identifier, address, UnpackAlert(cached->text)};
    if (!document.alert && cached->text != kUnreadable) return std::nullopt;
    return document;
}

void StoreDocument(const Document& document) {
    constexpr std::int64_t kHour = 3600;
    constexpr std::int64_t kMonth = kHour * 24 * 30;
    http::StoreCached(document.address, document.alert ? kMonth : kHour,
                      document.alert ? PackAlert(*document.alert) : std::string(kUnreadable),
                      SlotOf(document.uuid));
}

void TrimDocuments() {
    constexpr std::size_t kMostFiles = 500;
    constexpr std::uint64_t kMostBytes = 8 << 20;
    http::TrimCached(kPrefix, kMostFiles, kMostBytes);
}

}  // namespace fpas
