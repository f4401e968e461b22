#include "downloader/NwsJsonRules.h"

#include <string>
#include <vector>

#define JSON_NOEXCEPTION
#define JSON_NO_IO
#include <nlohmann/json.hpp>

namespace downloader {
namespace {

using Kind = JsonItem::Kind;
using Json = nlohmann::json;

constexpr std::size_t kDeepest = 64;

// Called by the library for each piece of the text; a false ends the reading. Its members' names
// are the library's.
struct Reader {
    const std::function<void(const JsonItem&)>& visit;
    std::string path;
    std::vector<std::size_t> lengths;  // of the path at each object or array around

    bool Tell(Kind kind, std::string_view text = {}, double number = 0) {
        visit({kind, path, text, number});
        return true;
    }
    bool Enter() {
        lengths.push_back(path.size());
        return lengths.size() <= kDeepest;
    }
    void Leave() {
        path.resize(lengths.back());
        lengths.pop_back();
    }

    bool null() { return Tell(Kind::other); }
    bool boolean(bool) { return Tell(Kind::other); }
    bool number_integer(Json::number_integer_t value) {
        return Tell(Kind::number, {}, static_cast<double>(value));
    }
    bool number_unsigned(Json::number_unsigned_t value) {
        return Tell(Kind::number, {}, static_cast<double>(value));
    }
    bool number_float(double value, const std::string&) { return Tell(Kind::number, {}, value); }
    bool string(const std::string& value) { return Tell(Kind::text, value); }
    bool binary(const Json::binary_t&) { return false; }
    bool start_object(std::size_t) { return Tell(Kind::beginObject) && Enter(); }
    bool key(const std::string& name) {
        path.resize(lengths.back());
        if (!path.empty()) path += '/';
        path += name;
        return true;
    }
    bool end_object() {
        Leave();
        return Tell(Kind::endObject);
    }
    bool start_array(std::size_t) {
        if (!Tell(Kind::beginArray) || !Enter()) return false;
        path += "[]";
        return true;
    }
    bool end_array() {
        Leave();
        return true;
    }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) {
        return false;
    }
};

}  // namespace

bool ReadJson(std::string_view json, const std::function<void(const JsonItem&)>& visit) {
    Reader reader{visit, {}, {}};
    return Json::sax_parse(json.begin(), json.end(), &reader);
}

}  // namespace downloader
