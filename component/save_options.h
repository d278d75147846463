#pragma once

namespace tillora {

class frmOptions;

/// The one save of the options dialog. False where a validation refused it: the message was shown,
/// the offending tab is selected, nothing was written but the start-up entry. Failures of the
/// host's objects are raised.
bool SaveOptions(frmOptions& dialog);

}  // namespace tillora
