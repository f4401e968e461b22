#include "downloader/feed/Gazetteer.h"

#include "downloader/feed/FeedXml.h"
#include "downloader/feed/PlaceName.h"
#include "downloader/feed/PlaceSearch.h"
#include "tests/fuzz/Elements.h"

// Whatever a gazetteer contains, look-ups read nothing outside it, and no search finds more places
// than requested.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    feed::FoldName(text);
    const auto gazetteer = feed::OpenGazetteer(text);
    if (!gazetteer) return 0;
    constexpr std::size_t kMost = 3;
    const std::string_view ownText = gazetteer->texts.substr(0, 30);
    for (const std::string_view name : {std::string_view("s, ont"), std::string_view("london uk"),
                                        std::string_view("londres"), ownText}) {
        const auto places = feed::FindPlaces(*gazetteer, name, kMost, feed::Scope::World);
        fuzz::Require(places.size() <= kMost);
        feed::BuildLocationDocument(places);
    }
    feed::FindZipCode(*gazetteer, "62701");
    if (const auto city = feed::FindCity(*gazetteer, "g6058560"))
        feed::BuildPlaceStationDocument(*city);
    return 0;
}
