#pragma once
#include <optional>
#include <string>

#include "downloader/fpas/Alerts.h"

// What was read from the server's documents, for later runs of the program. A document never
// changes, so it is requested again only after it has left the cache.
namespace fpas {

// Returns the document of an identifier, or nullopt if it is not cached. One that could not be read
// is known for an hour.
std::optional<Document> FindDocument(const std::string& identifier, const std::string& address);

// Caches the document. Call TrimDocuments after the last one.
void StoreDocument(const Document& document);

// Deletes the oldest documents until at most 500 with 8 MB in all remain.
void TrimDocuments();

}  // namespace fpas
