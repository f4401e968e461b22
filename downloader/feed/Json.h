#pragma once
#include <functional>
#include <string>
#include <string_view>

// A streaming JSON reader: it builds no tree of a large document and bounds the nesting.
namespace feed {

// A value, or the begin or end of an object or array. `path` is its position: the keys that lead to
// it, separated by "/", with "[]" for the elements of an array, as in
// "features[]/properties/event".
struct JsonItem {
    enum class Kind { Text, Number, Other, BeginObject, EndObject, BeginArray };
    Kind kind = Kind::Other;  // Other: null, true or false
    std::string_view path;
    std::string_view text;  // well-formed UTF-8
    double number = 0;
};

// Calls `visit` for every item in document order. Returns false when the document is not exactly
// one JSON value in UTF-8, or nests deeper than 64 levels; the items visited before that must be
// discarded.
bool ReadJson(std::string json, const std::function<void(const JsonItem&)>& visit);

// Like ReadJson, but the document is parsed in place, which changes it: the items' texts, though
// not their paths, point into it and stay valid with it.
bool ReadJsonInPlace(std::string& json, const std::function<void(const JsonItem&)>& visit);

}  // namespace feed
