// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picker/MediaPicker.h"
#include "ui/Presentation.h"

#include <QObject>

#include <functional>
#include <memory>

namespace trackwise {

/// Lets the user choose a song in the picker. The same picker is shown again, as it was left, while there is
/// one window only; it is never shared by two. Main thread.
class SongPickerSource : public QObject
{
    Q_OBJECT

public:
    using MakePicker = std::function<std::shared_ptr<MediaPicker>()>;

    SongPickerSource(Presentation &presentation, MakePicker makePicker, std::function<int()> connectedScenes,
                     QObject *parent = nullptr);

    /// Does nothing without authorization, or while the picker stands in this window already.
    void presentMediaPicker(bool authorized);

Q_SIGNALS:
    void didPickSong(const trackwise::MediaItem &song);
    void folderWanted();

private:
    [[nodiscard]] bool isPickerUp() const;
    void mediaPickerDidCancel();
    void mediaPickerDidPickMediaItems(const std::vector<MediaItem> &items);
    void connectPicker();

    Presentation &m_presentation;
    MakePicker m_makePicker;
    std::function<int()> m_connectedScenes;
    std::shared_ptr<MediaPicker> m_mediaPickerController;
};

} // namespace trackwise
