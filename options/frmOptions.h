#pragma once

namespace options {

// Shows the Options dialog and returns when it is closed. When it is open already, that one comes
// to the front and the call returns at once.
void ShowOptionsDialog();

}  // namespace options
