// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundInput.h"

#include <algorithm>

namespace trackwise {

AvailableInputs availableInputs(const SoundInputs &inputs)
{
    AvailableInputs available;
    for (const SoundInput &input : inputs.all) {
        if (input.repeatedOutput.isEmpty())
            available.named.push_back({QString::fromUtf8(input.name), input.description});
    }
    if (const auto input = chosenInput(inputs, defaultInputChoice))
        available.defaultTitle = input->description;
    available.hasThisComputersSound = chosenInput(inputs, thisComputersSound).has_value();
    return available;
}

std::optional<SoundInput> chosenInput(const SoundInputs &inputs, const InputChoice &choice)
{
    const auto firstWith = [&inputs](QByteArray SoundInput::*member,
                                     const QByteArray &value) -> std::optional<SoundInput> {
        const auto found = std::find_if(inputs.all.begin(), inputs.all.end(), [&](const SoundInput &input) {
            return !value.isEmpty() && input.*member == value;
        });
        return found == inputs.all.end() ? std::nullopt : std::optional(*found);
    };
    if (choice == thisComputersSound)
        return firstWith(&SoundInput::repeatedOutput, inputs.defaultOutput);
    if (auto named = firstWith(&SoundInput::name, choice))
        return named;
    const bool hasMicrophone = std::any_of(inputs.all.begin(), inputs.all.end(), [](const SoundInput &input) {
        return input.repeatedOutput.isEmpty();
    });
    return hasMicrophone ? firstWith(&SoundInput::name, inputs.defaultInput) : std::nullopt;
}

} // namespace trackwise
