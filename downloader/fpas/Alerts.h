#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "downloader/feed/AlertMemory.h"
#include "downloader/feed/Area.h"
#include "downloader/fpas/Alert.h"

namespace fpas {

// The most documents that are read for an answer.
inline constexpr std::size_t kMostDocuments = 60;

// A document of the server's answer.
struct Document {
    std::string uuid;            // by which the server names it
    std::string address;         // from which it was read
    std::optional<Alert> alert;  // nullopt: it cannot be read
};

// What the server has for a place.
struct Answer {
    std::vector<Document> documents;
    bool hasMore = false;  // there are more documents than were read
};

struct AlertPlace {
    std::string_view code;  // "g2988507"
    feed::Position centre;
};

// Builds the alert document for a place, most severe alert first. Omitted are alerts that are not
// in force for the public at `now` (the server's time, in seconds since 1970), those that another
// document replaces or cancels, and those that do not concern weather, the ground, fire or the
// environment. Of several languages it takes that of the user, a name such as "de-CH", else
// English, else the first. An event keeps its identifier through its updates, as far as the memory
// knows them; it learns from the answer. A document that cannot be read becomes an alert that says
// so.
std::string BuildAlertDocument(const Answer& answer, const AlertPlace& place,
                               std::string_view language, feed::AlertMemory& memory,
                               std::int64_t now);

}  // namespace fpas
