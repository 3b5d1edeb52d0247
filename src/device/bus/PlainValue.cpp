// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/bus/PlainValue.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace trackwise {

QVariant plainValue(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return value;
    const auto argument = value.value<QDBusArgument>();
    const QString signature = argument.currentSignature();
    if (signature == QLatin1StringView("av"))
        return qdbus_cast<QVariantList>(argument);
    if (signature == QLatin1StringView("a{sv}"))
        return qdbus_cast<QVariantMap>(argument);
    if (signature != QLatin1StringView("(ddd)"))
        return {};
    QVariantList parts;
    argument.beginStructure();
    while (!argument.atEnd())
        parts << argument.asVariant();
    argument.endStructure();
    return parts;
}

} // namespace trackwise
