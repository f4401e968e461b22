#include "downloader/feed/Json.h"

#include <vector>

#include "win/Text.h"

// A failed assertion crashes, which the caller's crash handler reports, and needs no library code.
#define RAPIDJSON_ASSERT(condition) ((condition) ? static_cast<void>(0) : __builtin_trap())
#include <rapidjson/reader.h>

namespace feed {
namespace {

using Kind = JsonItem::Kind;

constexpr std::size_t kDeepest = 64;

// Receives the parser's events, whose names are the library's; returning false stops the parser,
// which bounds the depth of its recursion. It checks the encoding because the library accepts
// escapes of lone low surrogates.
class Handler {
  public:
    explicit Handler(const std::function<void(const JsonItem&)>& visit) : visit_(visit) {}

    bool Null() { return Visit(Kind::Other); }
    bool Bool(bool) { return Visit(Kind::Other); }
    bool Int(int value) { return Double(value); }
    bool Uint(unsigned value) { return Double(value); }
    bool Int64(std::int64_t value) { return Double(static_cast<double>(value)); }
    bool Uint64(std::uint64_t value) { return Double(static_cast<double>(value)); }
    bool Double(double value) { return Visit(Kind::Number, {}, value); }
    bool RawNumber(const char*, std::size_t, bool) { return false; }
    bool String(const char* characters, std::size_t length, bool) {
        const std::string_view text(characters, length);
        return win::IsUtf8(text) && Visit(Kind::Text, text);
    }
    bool StartObject() { return Visit(Kind::BeginObject) && Enter(); }
    bool Key(const char* characters, std::size_t length, bool) {
        const std::string_view name(characters, length);
        path_.resize(lengths_.back());
        if (!path_.empty()) path_ += '/';
        path_ += name;
        return win::IsUtf8(name);
    }
    bool EndObject(std::size_t) {
        Leave();
        return Visit(Kind::EndObject);
    }
    bool StartArray() {
        if (!Visit(Kind::BeginArray) || !Enter()) return false;
        path_ += "[]";
        return true;
    }
    bool EndArray(std::size_t) {
        Leave();
        return true;
    }

  private:
    bool Visit(Kind kind, std::string_view text = {}, double number = 0) {
        visit_({kind, path_, text, number});
        return true;
    }
    bool Enter() {
        lengths_.push_back(path_.size());
        return lengths_.size() <= kDeepest;
    }
    void Leave() {
        path_.resize(lengths_.back());
        lengths_.pop_back();
    }

    const std::function<void(const JsonItem&)>& visit_;
    std::string path_;
    std::vector<std::size_t> lengths_;  // of the path, at each enclosing object or array
};

}  // namespace

bool ReadJson(std::string json, const std::function<void(const JsonItem&)>& visit) {
    return ReadJsonInPlace(json, visit);
}

bool ReadJsonInPlace(std::string& json, const std::function<void(const JsonItem&)>& visit) {
    constexpr std::size_t kByteOrderMark = 3;
    const std::size_t start = json.starts_with("\xEF\xBB\xBF") ? kByteOrderMark : 0;
    rapidjson::InsituStringStream stream(json.data() + start);
    rapidjson::Reader reader;
    Handler handler(visit);
    // The parser treats a zero byte as the end of the text.
    return !reader.Parse<rapidjson::kParseInsituFlag>(stream, handler).IsError() &&
           start + stream.Tell() == json.size();
}

}  // namespace feed
