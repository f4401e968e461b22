#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "downloader/feed/Gazetteer.h"

// The XML documents that answer a feed request.
namespace feed {

inline constexpr std::string_view kXmlHead =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<aws:weather "
    "xmlns:aws=\"http://www.aws.com/aws\">";
inline constexpr std::string_view kXmlTail = "</aws:weather>\n";

// Appends <aws:name>text</aws:name>. The text is well-formed UTF-8 and is escaped; characters that
// XML does not allow become spaces. The same applies to AppendXmlAttribute.
void AppendXmlElement(std::string& xml, std::string_view name, std::string_view text);

// Appends a space and name="text".
void AppendXmlAttribute(std::string& xml, std::string_view name, std::string_view text);

// The document that answers a request for alerts.
class AlertDocument {
  public:
    // `size` is the number of bytes that the document is expected to have.
    explicit AlertDocument(std::size_t size = 0);

    // Adds an alert, its texts in well-formed UTF-8.
    void Add(std::string_view identifier, std::string_view title, std::string_view body);

    // Returns the document. No alerts can be added afterwards.
    std::string Finish();

  private:
    std::string xml_;
};

// Returns the document with one entry that explains why a place has no alerts from this source.
// `code` is the code of the place.
std::string BuildNotCoveredDocument(std::string_view code, std::string_view reason);

// A weather station near a place, its coordinates as those of a place.
struct Station {
    std::string_view id;
    std::string_view name;
    std::string_view type;
    int latitude = 0;
    int longitude = 0;
};

// Appends the element of a station to a document between kXmlHead and kXmlTail. The station has the
// city, state and code of the place, so that alerts are requested for the place. As in all texts of
// stations and locations, brackets, bars and asterisks are replaced, which the program uses as
// delimiters.
void AppendStation(std::string& xml, const Station& station, const Place& place);

// Returns the document that answers a search for stations near a place abroad: the place itself.
std::string BuildPlaceStationDocument(const Place& place);

// Returns the document that answers a search for locations.
std::string BuildLocationDocument(const std::vector<Place>& places);

}  // namespace feed
