// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/AbsentRecognition.h"

namespace trackwise {

std::optional<Failure> AbsentRecognition::start()
{
    return Failure{FailureKind::Unavailable, tr("Not available on this device yet")};
}

} // namespace trackwise
