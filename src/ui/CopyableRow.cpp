// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/CopyableRow.h"

#include "ui/ItemInterface.h"

namespace trackwise {

namespace {

// In the style of Qt's own actions, whose names are never translated.
const QString copyAction = QStringLiteral("Copy");

class RowInterface : public ItemInterface, public QAccessibleActionInterface
{
public:
    explicit RowInterface(CopyableRow *row)
        : ItemInterface(row)
    {}

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::StaticText; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? row().spokenText() : QString();
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                    : nullptr;
    }

    [[nodiscard]] QStringList actionNames() const override { return {copyAction}; }
    [[nodiscard]] QString localizedActionName(const QString &name) const override
    {
        return name == copyAction ? CopyableRow::tr("Copy")
                                  : QAccessibleActionInterface::localizedActionName(name);
    }
    void doAction(const QString &name) override
    {
        if (name == copyAction)
            Q_EMIT row().copyRequested();
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    [[nodiscard]] CopyableRow &row() const { return static_cast<CopyableRow &>(*item()); }
};

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    if (className != QLatin1StringView(CopyableRow::staticMetaObject.className()))
        return nullptr;
    return new RowInterface(static_cast<CopyableRow *>(object));
}

} // namespace

CopyableRow::CopyableRow(QQuickItem *parent)
    : FocusableItem(parent)
{
    static const bool isKnown = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(isKnown)
}

void CopyableRow::setSpokenText(const QString &text)
{
    if (text == m_spokenText)
        return;
    m_spokenText = text;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    Q_EMIT spokenTextChanged();
}

} // namespace trackwise
