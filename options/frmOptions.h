#pragma once

namespace options {

// Shows the Options dialog and returns when it is closed. If it is already open, brings it to the
// front and returns at once.
void ShowOptionsDialog();

}  // namespace options
