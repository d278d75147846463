#pragma once

namespace tillora {

class frmOptions;

/// Saves the options dialog. False if a validation refused: the message was shown, the offending
/// tab is selected, and nothing was written but the start-up entry. Failures of the host's objects
/// are raised.
bool SaveOptions(frmOptions& dialog);

}  // namespace tillora
