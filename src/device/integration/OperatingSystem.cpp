// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/OperatingSystem.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QScreen>

#include <algorithm>

namespace trackwise {

namespace {

constexpr qreal widestPhone = 500;      // points, of the shorter side
constexpr qint64 longestFile = 0x10000; // a few hundred bytes are usual

// A value as a shell reads it: within quotes of either kind, or bare; a backslash stands before what is
// special within double quotes.
QString unquoted(QByteArray value)
{
    value = value.trimmed();
    const bool isQuoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
    const bool isLiteral = isQuoted && value.front() == '\'';
    if (isQuoted)
        value = value.mid(1, value.size() - 2);
    QByteArray plain;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == '\\' && !isLiteral && i + 1 < value.size())
            ++i;
        plain += value.at(i);
    }
    return QString::fromUtf8(plain);
}

QHash<QByteArray, QString> fieldsOf(const QByteArray &osRelease)
{
    QHash<QByteArray, QString> fields;
    for (const QByteArray &line : osRelease.split('\n')) {
        const qsizetype equals = line.indexOf('=');
        if (equals > 0 && !line.startsWith('#'))
            fields.insert(line.left(equals).trimmed(), unquoted(line.mid(equals + 1)));
    }
    return fields;
}

} // namespace

SystemDescription describeSystem(const QByteArray &osRelease)
{
    const QHash<QByteArray, QString> fields = fieldsOf(osRelease);
    const auto firstOf = [&fields](std::initializer_list<const char *> names, const char *otherwise) {
        for (const char *name : names) {
            if (const QString value = fields.value(name); !value.isEmpty())
                return value;
        }
        return QString::fromLatin1(otherwise);
    };
    return {.name = firstOf({"NAME"}, "Linux"),
            .version = firstOf({"VERSION_ID", "VERSION_CODENAME", "BUILD_ID"}, "0")};
}

bool isTouchTablet(const QList<QInputDevice::DeviceType> &inputs, const QSizeF &screen)
{
    using Type = QInputDevice::DeviceType;
    return inputs.contains(Type::TouchScreen) && !inputs.contains(Type::Mouse) &&
           !inputs.contains(Type::TouchPad) && std::min(screen.width(), screen.height()) >= widestPhone;
}

SystemDescription describeThisSystem(const QStringList &files)
{
    QByteArray osRelease;
    for (const QString &name : files) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        osRelease = file.read(longestFile);
        break;
    }
    SystemDescription system = describeSystem(osRelease);
    QList<QInputDevice::DeviceType> inputs;
    for (const QInputDevice *device : QInputDevice::devices())
        inputs << device->type();
    const QScreen *screen = QGuiApplication::primaryScreen();
    system.isTablet = screen && isTouchTablet(inputs, screen->size());
    return system;
}

} // namespace trackwise
