#pragma once

namespace win {

// Returns a function of a system library; loads the library when no call has loaded it yet. The
// process ends when the library or the function is missing, as it would for an ordinary import.
void* FindLateFunction(const char* library, const char* name);

// A function of a system library that is looked up at its first call, so that a start which does
// not call it does not pay for the library. `Function` is the function's type; the object is called
// like the function.
template <class Function>
class LateFunction {
  public:
    // Both texts must outlive the object.
    constexpr LateFunction(const char* library, const char* name)
        : library_(library), name_(name) {}
    operator Function*() {
        if (!function_) function_ = reinterpret_cast<Function*>(FindLateFunction(library_, name_));
        return function_;
    }

  private:
    const char* library_;
    const char* name_;
    Function* function_ = nullptr;
};

}  // namespace win
