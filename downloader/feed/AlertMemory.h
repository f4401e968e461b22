#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

// What the sources remember of the messages that they have read, so that an event keeps its
// identifier although each message of it names at most its predecessor.
namespace feed {

// Returns exactly seven characters 0-9 A-Z that identify the text. The list of alerts that the
// program has seen holds 62 of them.
std::string ShortIdentity(std::string_view text);
// Returns the identity of one of several events that share an identity; the detail tells them
// apart.
std::string ShortIdentity(const std::string& identity, std::string_view detail);

// An event as one of its messages identified it.
struct KnownEvent {
    std::string identity;  // by ShortIdentity, without regard to the tier
    int year = 0;          // of the event's first message, where events are numbered by year; or 0
    int tier = 0;          // the highest so far, 0 to kHighestTier
};
inline constexpr int kHighestTier = 3;

// Events by the identifiers of their messages. Times are in seconds since 1970.
class AlertMemory {
  public:
    // The most entries that are kept, and for how long.
    static constexpr std::size_t kMostEntries = 5000;
    static constexpr std::int64_t kLongestTime = 2'592'000;  // a month, in seconds

    AlertMemory() = default;

    // Reads what Text returned. A damaged text is an empty memory.
    explicit AlertMemory(std::string_view text);

    // Returns the event of the key (the identifier of a message, say); null if it is not known.
    const KnownEvent* Find(std::string_view key) const;

    // Keeps the event under the key.
    void Remember(std::string_view key, const KnownEvent& event, std::int64_t now);

    // Takes over each entry of the other memory that is newer than the one here.
    void Merge(const AlertMemory& other);

    // Whether Remember has changed anything worth saving.
    bool IsChanged() const { return isChanged_; }

    // The memory as text, without entries that are too old or from the future; at most
    // kMostEntries.
    std::string Text(std::int64_t now) const;

  private:
    struct Entry {
        KnownEvent event;
        std::int64_t time = 0;
    };
    std::map<std::uint64_t, Entry> entries_;  // by the key's hash
    bool isChanged_ = false;
};

}  // namespace feed
