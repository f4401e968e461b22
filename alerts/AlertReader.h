#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "settings/IniText.h"
#include "win/XmlDocument.h"

// Reading one station's feed of active alerts.
namespace alerts {

// The user's word filter, as it was when a feed began to be read.
struct AlertFilter {
    std::vector<std::string> lowerWords;
    bool showOnly = false;

    bool Keeps(const std::string& body) const;
};

// Reads a feed document in short steps, so that messages can run between them however long it is.
// The alerts that pass the filter are held for the Alerts section, numbered on from its count.
class AlertReader {
  public:
    // A document that does not load stores nothing.
    AlertReader(const std::string& dataFile, const std::string& stationCode);

    // Reads on for some milliseconds; true when the document has been read to its end and stored.
    bool ReadSome();
    // The identifiers of the stored alerts, in the order of the document, as the list of seen ones
    // holds them.
    const std::vector<std::string>& Identifiers() const { return identifiers_; }

  private:
    void Take(const win::XmlNode& node);
    void Store(const std::string& body);

    std::string stationCode_;
    AlertFilter filter_;
    win::XmlDocument document_;
    win::XmlNodeList nodes_;
    std::int16_t number_ = 0;
    std::string identifier_;
    std::string title_;           // carries over to an alert without a title of its own
    settings::KeyValues values_;  // of the present step
    std::vector<std::string> identifiers_;
};

}  // namespace alerts
