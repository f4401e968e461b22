#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "alerts/WordFilter.h"
#include "settings/IniText.h"
#include "win/XmlDocument.h"

namespace alerts {

// Reads the feed document of one station in short steps, so that messages can be handled between
// them however long the document is. The alerts that pass the word filter are held for the Alerts
// section of the settings, numbered from its count on.
class AlertReader {
  public:
    // Starts to load the document. One that cannot be loaded holds no alerts.
    AlertReader(const std::string& dataFile, const std::string& stationCode);

    // Reads for a few milliseconds. Returns true once the whole document has been read and its
    // alerts are held.
    bool ReadSome();
    // The identifiers of the held alerts, in the order of the document, each on one line.
    const std::vector<std::string>& Identifiers() const { return identifiers_; }

  private:
    void Take(const win::XmlNode& node);
    void Hold(const std::string& body);

    std::string stationCode_;
    WordFilter filter_;  // as it was when the document was opened
    win::XmlDocument document_;
    win::XmlNodeList nodes_;
    std::int16_t number_ = 0;
    std::string identifier_;
    std::string title_;           // kept for an alert without a title of its own
    settings::KeyValues values_;  // of the current step
    std::vector<std::string> identifiers_;
};

}  // namespace alerts
