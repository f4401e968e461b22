#pragma once
#include <functional>
#include <string_view>

// Reading JSON as a stream: a large answer is never held as a tree, and hostile nesting costs
// nothing.
namespace downloader {

// One value, or the begin or end of an object or array. `path` tells its place: the keys that lead
// to it with "/" between them, and "[]" for an array's element, as in
// "features[]/properties/event".
struct JsonItem {
    enum class Kind { text, number, other, beginObject, endObject, beginArray };
    Kind kind = Kind::other;  // other: null, true and false
    std::string_view path;
    std::string_view text;  // UTF-8, well-formed
    double number = 0;
};

// Hands every item to `visit` in the order of the text. False when the text is not one whole JSON
// value or nests deeper than 64; what was visited until then is then of no use.
bool ReadJson(std::string_view json, const std::function<void(const JsonItem&)>& visit);

}  // namespace downloader
