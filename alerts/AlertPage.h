#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "alerts/PlaceAnswers.h"

// The web page that shows the alerts of all places. It needs no other file and no network.
namespace alerts {

struct PagePlace {
    std::string name;
    PlaceAnswer answer;
    bool isOld = false;         // whether the answer is too old to rely on
    std::vector<Alert> stored;  // from an earlier session; shown where no answer is known
    std::string forecast;       // the address of the place's forecast; may be empty
    std::string source;         // the address of the source's own page; likewise
    std::string sourceTitle;    // what that page is
};

struct PageData {
    std::vector<PagePlace> places;  // the one that the user chose first
    std::string written;            // the time of writing, as the user writes dates
    std::string source;             // what the source of the alerts is
    std::size_t longestStored = 0;  // a stored text of this length was cut; 0: never
};

// Whether "no alerts" is certain: the last request succeeded, not too long ago, and returned none.
bool HasCertainlyNoAlerts(const PagePlace& place);

// Returns the page. All texts are escaped; non-ASCII characters come only from them.
std::string BuildAlertPage(const PageData& data);

}  // namespace alerts
