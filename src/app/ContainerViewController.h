// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkSidebarView.h"
#include "detail/DetailViewController.h"
#include "detail/DetailViewControllerDelegate.h"

#include <QDateTime>
#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <optional>

namespace trackwise {

class MusicPlayer;
class Preferences;

/// Width of the sidebar column, in points: wider where there is more room at the sides than above.
[[nodiscard]] qreal primaryColumnWidth(const QSizeF &available);
/// Whether a window of this width has room for the sidebar beside the details.
[[nodiscard]] bool isRegularWidth(qreal windowWidth);

/// What containers need of the device and the app; one for all windows.
struct ContainerServices
{
    MusicPlayer &player; ///< the app's own
    Preferences &preferences;
    const ArtworkServices &artwork;
    std::function<QDateTime()> now;
};

/// The root of a window: the artwork sidebar beside the navigation stack with the detail screen. Learns of
/// every change of the shown song, makes the sidebar anew for it, stops the app's player when it played the
/// song before, counts the view and asks for a review now and then. Main thread.
class ContainerViewController : public QObject, public DetailViewControllerDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    Q_PROPERTY(trackwise::ArtworkSidebarView *sidebar READ sidebar NOTIFY sidebarDidChange)
    Q_PROPERTY(trackwise::DetailViewController *detail READ detail CONSTANT)
    Q_PROPERTY(qreal columnWidth READ columnWidth NOTIFY layoutDidChange)
    Q_PROPERTY(bool isSidebarVisible READ isSidebarVisible NOTIFY layoutDidChange)
    Q_PROPERTY(bool isReviewCardVisible READ isReviewCardVisible NOTIFY reviewCardDidChange)

public:
    /// @p services and @p detail must outlive the container.
    ContainerViewController(const ContainerServices &services, DetailViewController &detail,
                            QObject *parent = nullptr);
    ~ContainerViewController() override;

    /// To be called once, before the detail's own.
    void viewDidLoad();
    Q_INVOKABLE void viewWillTransitionToSize(const QSizeF &size);
    void detailViewControllerDidChangeMediaItem(const std::optional<MediaItem> &mediaItem,
                                                bool isNowPlaying) override;

    /// Whether the container is on the screen: reviews are asked for only there.
    void setInWindow(bool isInWindow) { m_isInWindow = isInWindow; }
    Q_INVOKABLE void rate();
    Q_INVOKABLE void closeReviewCard();

    [[nodiscard]] ArtworkSidebarView *sidebar() const { return m_artworkSidebar.get(); }
    [[nodiscard]] DetailViewController *detail() const { return &m_detail; }
    [[nodiscard]] qreal columnWidth() const { return m_columnWidth; }
    [[nodiscard]] bool isSidebarVisible() const { return m_isSidebarVisible; }
    [[nodiscard]] bool isReviewCardVisible() const { return m_isReviewCardVisible; }

Q_SIGNALS:
    void sidebarDidChange();
    void layoutDidChange();
    void reviewCardDidChange();

private:
    void installSidebar();
    void refreshMediaItem();
    void stopPlayerIfItPlayedThePreviousSong();
    void runReviewPolicy();

    const ContainerServices &m_services;
    DetailViewController &m_detail;
    std::unique_ptr<ArtworkSidebarView> m_artworkSidebar;
    std::optional<MediaItem> m_mediaItem;
    bool m_isNowPlaying = false;
    QDateTime m_loadedDate;
    qreal m_columnWidth;
    bool m_isSidebarVisible = false;
    bool m_isInWindow = false;
    bool m_isReviewCardVisible = false;
};

} // namespace trackwise
