// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <vector>

namespace trackwise {

/// One line of a list on the settings screen.
struct SettingsLine
{
    QString key; ///< what the line stands for; not shown
    QString title;
    QString note;
    bool isOn = false; ///< a player: ignored; a folder: may be removed

    friend bool operator==(const SettingsLine &, const SettingsLine &) = default;
};

/// A short list on the settings screen. Main thread.
class SettingsList : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings screen")

public:
    enum Role { TitleRole = Qt::UserRole + 1, NoteRole, IsOnRole };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] const std::vector<SettingsLine> &lines() const { return m_lines; }
    /// Nothing for a row that is not there.
    [[nodiscard]] std::optional<SettingsLine> line(int row) const;
    void setLines(std::vector<SettingsLine> lines);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<SettingsLine> m_lines;
};

} // namespace trackwise
