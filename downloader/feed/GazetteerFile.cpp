#include "downloader/feed/GazetteerFile.h"

#include "win/CodePage.h"
#include "win/Files.h"

namespace feed {

GazetteerFile::GazetteerFile(const std::string& path) {
    const win::FileHandle file(CreateFileW(win::ToWide(path).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                           nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size;
    if (!file || !GetFileSizeEx(file.Get(), &size) || size.HighPart != 0) return;
    const win::KernelHandle mapping(
        CreateFileMappingW(file.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (!mapping) return;
    view_.Reset(MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, 0));
    if (view_) size_ = size.LowPart;
}

std::optional<Gazetteer> GazetteerFile::Open() const {
    return OpenGazetteer({static_cast<const char*>(view_.Get()), size_});
}

std::string GazetteerPath() {
    return win::ExecutableFolder() + "\\places.dat";
}

}  // namespace feed
