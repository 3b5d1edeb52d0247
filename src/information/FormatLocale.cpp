// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/FormatLocale.h"

#include <QString>

#include <array>

namespace trackwise {

namespace {

struct ScriptModifier
{
    QByteArrayView modifier; // after "@" in a POSIX locale name
    QByteArrayView script;   // ISO 15924, as ICU wants it
};

constexpr std::array scriptModifiers{
    ScriptModifier{"latin", "Latn"},
    ScriptModifier{"cyrillic", "Cyrl"},
    ScriptModifier{"devanagari", "Deva"},
    ScriptModifier{"iqtelif", "Latn"},
};

// "sr_RS.UTF-8@latin" becomes "sr_Latn_RS". Modifiers that name no script ("@euro") say nothing here.
QByteArray icuName(const QByteArray &posixName)
{
    const QByteArrayList parts = posixName.split('@');
    const QByteArray modifier = parts.value(1);
    QByteArray name = parts.first().split('.').first();
    if (name.isEmpty() || name == "C" || name == "POSIX")
        return "en_US";
    for (const auto &[posix, script] : scriptModifiers) {
        if (modifier != posix)
            continue;
        const qsizetype languageEnd = name.indexOf('_');
        name.insert(languageEnd < 0 ? name.size() : languageEnd, QByteArray("_").append(script));
    }
    return name;
}

} // namespace

FormatLocale FormatLocale::fromEnvironment(const QProcessEnvironment &environment)
{
    const auto category = [&environment](const QString &variable) {
        for (const QString &name : {QStringLiteral("LC_ALL"), variable, QStringLiteral("LANG")}) {
            if (const QString value = environment.value(name); !value.isEmpty())
                return icuName(value.toUtf8());
        }
        return QByteArray("en_US");
    };
    return {.dates = category(QStringLiteral("LC_TIME")), .numbers = category(QStringLiteral("LC_NUMERIC"))};
}

} // namespace trackwise
