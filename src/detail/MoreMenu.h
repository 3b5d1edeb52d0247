// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <vector>

namespace trackwise {

enum class MoreCommand { SelectNowPlaying, ClearSelectedSong, OpenSettings };

/// One entry of the menu behind the "More" button.
struct MoreMenuItem
{
    MoreCommand command;
    QString title;
    QString symbolName;
    bool isEnabled = true;
    bool startsSection = false; ///< a line is drawn above it

    friend bool operator==(const MoreMenuItem &, const MoreMenuItem &) = default;
};

/// What the menu depends on.
struct MoreMenuState
{
    bool showsSong = false;
    bool hasSettings = false; ///< the device has a settings screen

    friend bool operator==(const MoreMenuState &, const MoreMenuState &) = default;
};

[[nodiscard]] std::vector<MoreMenuItem> moreMenuItems(const MoreMenuState &state);

/// The menu's entries as its view draws them: a snapshot, made anew by update(). Main thread.
class MoreMenu : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the detail controller")
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    enum Role { TitleRole = Qt::UserRole + 1, SymbolRole, EnabledRole, StartsSectionRole };

    explicit MoreMenu(std::function<void(MoreCommand)> perform, QObject *parent = nullptr);

    [[nodiscard]] QString title() const;
    void update(const MoreMenuState &state);
    [[nodiscard]] const std::vector<MoreMenuItem> &items() const { return m_items; }

    /// Performs the entry of @p row, unless it is disabled.
    Q_INVOKABLE void trigger(int row);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::function<void(MoreCommand)> m_perform;
    std::vector<MoreMenuItem> m_items;
};

} // namespace trackwise
