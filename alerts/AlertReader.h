#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "alerts/PlaceAnswers.h"
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
    // Returns what the document said about its place, without a time. The answer is not known if
    // the document cannot be read; it is known but failed if an alert of it could not be read.
    PlaceAnswer Answer() const;
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
    std::vector<Alert> alerts_;  // the held ones, and those exempt from the filter
    bool hasList_ = false;       // whether the document has a list of alerts
    bool isOpen_ = false;        // whether the current alert has had no body yet
    bool hasUnread_ = false;     // whether an alert has no body
};

}  // namespace alerts
