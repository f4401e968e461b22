#pragma once
#include <utility>

namespace win {

// Makes an object that lives as long as the process and whose destructor never runs. Every object
// of static lifetime that has a destructor is made by it: at process exit the system has already
// detached the DLLs that a destructor would call, and has closed the windows. The result is bound
// to a reference without const: GCC 13 and later warn that one with const may dangle.
template <class Object, class... Arguments>
Object& NeverDestroyed(Arguments&&... arguments) {
    return *new Object{std::forward<Arguments>(arguments)...};
}

}  // namespace win
