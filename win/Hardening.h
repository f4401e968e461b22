#pragma once

namespace win {

// What a process does before anything else: ends on a corrupted heap, loads libraries from the
// system folder only, and never lets the system show a box for a missing disk.
void HardenProcess();

}  // namespace win
