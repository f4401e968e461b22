#pragma once

namespace search {

// Runs one search for the text in Text1, from the click on "Search" to the filled list and the
// centred map. Does nothing when the text is empty or another search has disabled the button.
void Command1_Click();

}  // namespace search
