#pragma once
#include <optional>
#include <string>

#include "downloader/feed/Gazetteer.h"
#include "win/Handle.h"

namespace feed {

// The gazetteer's file, mapped into memory. The system only reads the pages that are used.
class GazetteerFile {
  public:
    explicit GazetteerFile(const std::string& path);

    // Returns the gazetteer, which is valid as long as this object; nullopt when the file is
    // missing or damaged.
    std::optional<Gazetteer> Open() const;

  private:
    struct ViewTraits {
        using Type = const void*;
        static Type Empty() { return nullptr; }
        static void Close(Type view) { UnmapViewOfFile(view); }
    };
    win::UniqueHandle<ViewTraits> view_;
    std::size_t size_ = 0;
};

// Returns the path of the gazetteer, places.dat next to the program.
std::string GazetteerPath();

}  // namespace feed
