#pragma once
#include <string>
#include <string_view>

#include "win/Handle.h"

namespace downloader {

// A file's bytes in memory, of which the system reads only what is looked at.
class MappedFile {
  public:
    explicit MappedFile(const std::string& path);

    // Empty for a file that cannot be read.
    std::string_view Bytes() const { return {static_cast<const char*>(view_.Get()), size_}; }

  private:
    struct ViewTraits {
        using Type = const void*;
        static Type Empty() { return nullptr; }
        static void Close(Type view) { UnmapViewOfFile(view); }
    };
    win::UniqueHandle<ViewTraits> view_;
    std::size_t size_ = 0;
};

}  // namespace downloader
