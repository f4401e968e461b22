#pragma once
#include <string_view>

namespace win {

// Whether a document may be handed to the XML library: it has no document type declaration, through
// which it could name outside entities or expand without end, and no encoding that could hide one.
bool IsSafeXml(std::string_view bytes);

}  // namespace win
