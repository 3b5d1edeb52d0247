// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RecognitionSession.h"

namespace trackwise {

/// The session of a device that cannot recognise music: it never starts, and says so.
class AbsentRecognition : public RecognitionSession
{
    Q_OBJECT

public:
    using RecognitionSession::RecognitionSession;

    [[nodiscard]] std::optional<Failure> start() override;
    void stop() override {}
    [[nodiscard]] bool isRunning() const override { return false; }
};

} // namespace trackwise
