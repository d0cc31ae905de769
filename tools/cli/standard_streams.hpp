// The three standard streams, before anything is opened.
#pragma once

namespace amesp_inp {

// Gives every standard stream that is closed to /dev/null, opened so that using it still fails: else the next file that
// is opened would take its number, and messages would end up in that file. To be called before all else; false when it
// cannot be done, and nothing may be opened then.
bool hold_standard_streams();

}  // namespace amesp_inp
