// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Call.h"

namespace trackwise::cli {

/// What each command does, once the call has been taken apart. Complaints go to the error output.
[[nodiscard]] ExitCode showInformation(const Call &call);
[[nodiscard]] ExitCode scanLibrary(const Call &call);
[[nodiscard]] ExitCode showStatus(const Call &call);
[[nodiscard]] ExitCode searchLibrary(const Call &call);
[[nodiscard]] ExitCode listProblems(const Call &call);
[[nodiscard]] ExitCode exportLibrary(const Call &call);
[[nodiscard]] ExitCode showCatalog(const Call &call);
[[nodiscard]] ExitCode buildCatalog(const Call &call);
[[nodiscard]] ExitCode exportCatalog(const Call &call);
[[nodiscard]] ExitCode addCatalog(const Call &call);
[[nodiscard]] ExitCode removeCatalog(const Call &call);
[[nodiscard]] ExitCode identifyClips(const Call &call);
[[nodiscard]] ExitCode identifyWhatIsHeard(const Call &call);

/// Says why and gives the code that fits: NotFound for what is not there, else Failure.
[[nodiscard]] ExitCode giveUp(const Failure &failure);

} // namespace trackwise::cli
