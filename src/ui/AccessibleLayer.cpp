// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/AccessibleLayer.h"

#include "ui/ItemInterface.h"

#include <QQmlContext>
#include <QQmlProperty>

namespace trackwise {

namespace {

class LayerInterface : public ItemInterface
{
public:
    explicit LayerInterface(AccessibleLayer *layer)
        : ItemInterface(layer)
    {}

    [[nodiscard]] QAccessible::Role role() const override
    {
        switch (layer().kind()) {
        case AccessibleLayer::Kind::Sheet:
            return QAccessible::Dialog;
        case AccessibleLayer::Kind::Alert:
            return QAccessible::AlertMessage;
        case AccessibleLayer::Kind::Screen:
            break;
        }
        return QAccessible::Pane;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name)
            return layer().name();
        return kind == QAccessible::Description ? layer().details() : QString();
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = ItemInterface::state();
        state.modal = layer().kind() != AccessibleLayer::Kind::Screen;
        return state;
    }
    [[nodiscard]] int childCount() const override { return content() ? 1 : 0; }
    [[nodiscard]] QAccessibleInterface *child(int index) const override
    {
        return index == 0 ? content() : nullptr;
    }

private:
    [[nodiscard]] const AccessibleLayer &layer() const
    {
        return static_cast<const AccessibleLayer &>(*item());
    }
    [[nodiscard]] QAccessibleInterface *content() const
    {
        const QList<QQuickItem *> items = item()->childItems();
        return layer().isCovered() || items.isEmpty() ? nullptr
                                                      : QAccessible::queryAccessibleInterface(items.front());
    }
};

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    if (className != QLatin1StringView(AccessibleLayer::staticMetaObject.className()))
        return nullptr;
    return new LayerInterface(static_cast<AccessibleLayer *>(object));
}

} // namespace

AccessibleLayer::AccessibleLayer(QQuickItem *parent)
    : QQuickItem(parent)
{
    static const bool isKnown = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(isKnown)
    setFlag(ItemIsFocusScope);
}

void AccessibleLayer::setName(const QString &name)
{
    if (name == m_name)
        return;
    m_name = name;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    Q_EMIT changed();
}

void AccessibleLayer::setDetails(const QString &details)
{
    if (details == m_details)
        return;
    m_details = details;
    Q_EMIT changed();
}

// A popup puts what it shows into an item of its own, which would be a second dialog, without a name.
void AccessibleLayer::componentComplete()
{
    QQuickItem::componentComplete();
    if (m_kind != Kind::Screen && parentItem())
        QQmlProperty(parentItem(), QStringLiteral("Accessible.ignored"), qmlContext(this)).write(true);
}

} // namespace trackwise
