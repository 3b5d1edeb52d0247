// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/SongPickerSource.h"

namespace trackwise {

SongPickerSource::SongPickerSource(Presentation &presentation, MakePicker makePicker,
                                   std::function<int()> connectedScenes, QObject *parent)
    : QObject(parent)
    , m_presentation(presentation)
    , m_makePicker(std::move(makePicker))
    , m_connectedScenes(std::move(connectedScenes))
{
    connect(&presentation, &Presentation::sheetCancelRequested, this, [this] {
        if (isPickerUp())
            mediaPickerDidCancel();
    });
}

bool SongPickerSource::isPickerUp() const
{
    return m_mediaPickerController && m_presentation.isSheetVisible() &&
           m_presentation.sheet()->model() == m_mediaPickerController.get();
}

void SongPickerSource::presentMediaPicker(bool authorized)
{
    // Several requests may have waited for one answer. The picker that stands is the one that we listen to.
    if (!authorized || isPickerUp())
        return;
    if (!m_mediaPickerController || m_connectedScenes() >= 2) {
        if (m_mediaPickerController)
            m_mediaPickerController->disconnect(this);
        m_mediaPickerController = m_makePicker();
        connectPicker();
    }
    m_presentation.present(std::make_shared<HostedView>(
        tr("Select Song"), QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Picker/SongPickerView.qml")), "picker",
        m_mediaPickerController));
}

void SongPickerSource::connectPicker()
{
    const MediaPicker *picker = m_mediaPickerController.get();
    connect(picker, &MediaPicker::didCancel, this, &SongPickerSource::mediaPickerDidCancel);
    connect(picker, &MediaPicker::didPick, this, &SongPickerSource::mediaPickerDidPickMediaItems);
    connect(picker, &MediaPicker::folderWanted, this, &SongPickerSource::folderWanted);
}

void SongPickerSource::mediaPickerDidCancel()
{
    m_presentation.dismiss();
}

void SongPickerSource::mediaPickerDidPickMediaItems(const std::vector<MediaItem> &items)
{
    m_presentation.dismiss();
    if (!items.empty())
        Q_EMIT didPickSong(items.front());
}

} // namespace trackwise
