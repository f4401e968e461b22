#pragma once
#include <utility>

namespace win {

// Creates an object that is never destroyed. All static objects with destructors are created by it:
// at process exit the system has already closed the windows and detached the DLLs that a destructor
// would use. Bind the result to a non-const reference: GCC 13 and later warn of a const one.
template <class Object, class... Arguments>
Object& NeverDestroyed(Arguments&&... arguments) {
    return *new Object{std::forward<Arguments>(arguments)...};
}

}  // namespace win
