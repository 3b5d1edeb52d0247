// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSizeF>
#include <QString>
#include <QUrl>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace trackwise {

/// A view that can be hosted in a sheet or on the navigation stack: a QML file, the properties it is made
/// with, and the object that feeds it. Shared by its maker and whoever shows it.
class HostedView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by controllers")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QUrl source READ source CONSTANT)
    Q_PROPERTY(QVariantMap properties READ properties CONSTANT)
    Q_PROPERTY(bool hasOwnSize READ hasOwnSize CONSTANT)

public:
    /// @p model is kept alive as long as this and is handed to the view as the property @p modelName.
    HostedView(QString title, QUrl source, const char *modelName, std::shared_ptr<QObject> model)
        : m_title(std::move(title))
        , m_source(std::move(source))
        , m_model(std::move(model))
    {
        m_properties.insert(QString::fromLatin1(modelName), QVariant::fromValue(m_model.get()));
    }
    HostedView(QString title, QUrl source, QVariantMap properties)
        : m_title(std::move(title))
        , m_source(std::move(source))
        , m_properties(std::move(properties))
    {}

    /// Of a sheet with a size and a ground of its own, in points; to be set before it is presented.
    void setPreferredSize(const QSizeF &size) { m_preferredSize = size; }
    [[nodiscard]] std::optional<QSizeF> preferredSize() const { return m_preferredSize; }
    [[nodiscard]] bool hasOwnSize() const { return m_preferredSize.has_value(); }

    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] QUrl source() const { return m_source; }
    [[nodiscard]] const QObject *model() const { return m_model.get(); }
    [[nodiscard]] QVariantMap properties() const { return m_properties; }
    /// The device asks the user something: what the app is told to do meanwhile does not take it away.
    [[nodiscard]] bool isQuestion() const { return m_isQuestion; }
    void setQuestion(bool isQuestion) { m_isQuestion = isQuestion; }

private:
    QString m_title;
    QUrl m_source;
    QVariantMap m_properties;
    std::shared_ptr<QObject> m_model;
    bool m_isQuestion = false;
    std::optional<QSizeF> m_preferredSize;
};

} // namespace trackwise
