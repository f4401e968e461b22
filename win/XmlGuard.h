#pragma once
#include <string_view>

namespace win {

// Whether the XML library may read a document: it has no document type declaration, which could
// refer to external entities or expand without limit, and no encoding that could hide one.
bool IsSafeXml(std::string_view bytes);

}  // namespace win
