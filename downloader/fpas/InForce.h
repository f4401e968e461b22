#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "downloader/fpas/Alert.h"

// Which alerts and which of their blocks are in force for the public.
namespace fpas {

// Whether the alert is for the public: neither a test nor restricted.
bool IsPublic(const Alert& alert);

// Whether a public alert has what every alert must have, in the words of CAP, and says something
// unless it cancels another.
bool IsComplete(const Alert& alert);

// Whether the alert announces something: it is an Alert or an Update.
bool IsAnnouncement(const Alert& alert);

// Whether a block of the alert is in force at `now` (seconds since 1970): it has not ended, is not
// a message that all is well, and is about weather, the ground, fire or the environment.
bool IsInForce(const Info& info, const Alert& alert, std::int64_t now);

// A message that another one refers to.
struct Reference {
    std::string_view sender;
    std::string_view identifier;
    std::string_view sent;
};
std::vector<Reference> ReferencesOf(const Alert& alert);

// Returns for each alert whether another of them replaces or cancels it. Null ones are ignored.
std::vector<bool> FindReplaced(const std::vector<const Alert*>& alerts);

}  // namespace fpas
