#pragma once
#include <utility>

namespace win {

// Makes an object that lives as long as the process and whose destructor never runs. Every object
// of static lifetime that has a destructor is made by it: at process exit the system has already
// detached the DLLs that a destructor would call, and has closed the windows.
template <class Object, class... Arguments>
Object& NeverDestroyed(Arguments&&... arguments) {
    return *new Object{std::forward<Arguments>(arguments)...};
}

}  // namespace win
