// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/InputMonitor.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace trackwise {

/// Something that sound comes in by, as the sound server knows it.
struct SoundInput
{
    QByteArray name;     ///< the server's own
    QString description; ///< for people, in the server's language
    int rateHz = 0;
    int channels = 0;
    QByteArray repeatedOutput; ///< the output whose sound it repeats; empty: it is a microphone or the like

    friend bool operator==(const SoundInput &, const SoundInput &) = default;
};

/// What there is to listen to at one moment.
struct SoundInputs
{
    std::vector<SoundInput> all;
    QByteArray defaultInput;
    QByteArray defaultOutput;

    friend bool operator==(const SoundInputs &, const SoundInputs &) = default;
};

/// What the user wants to listen to: the name of an input, or one of these.
using InputChoice = QByteArray;
inline const InputChoice defaultInputChoice;
inline const InputChoice thisComputersSound = computersSoundName;

[[nodiscard]] AvailableInputs availableInputs(const SoundInputs &inputs);

/// The input that @p choice means now; one that is not there is replaced by the default. Nothing where there
/// is none: where all that comes in is what goes out, the server takes that as default, and no user has
/// chosen it.
[[nodiscard]] std::optional<SoundInput> chosenInput(const SoundInputs &inputs, const InputChoice &choice);

} // namespace trackwise
