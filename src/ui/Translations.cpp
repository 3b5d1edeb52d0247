// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Translations.h"

#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace trackwise {

namespace {
// Told by each translation: which way its language is written. Qt looks it up under this name.
[[maybe_unused]] constexpr const char *layoutDirection =
    QT_TRANSLATE_NOOP("QGuiApplication", "QT_LAYOUT_DIRECTION");
} // namespace

QString translationFor(const QStringList &languages)
{
    for (const QString &language : languages) {
        const QString code = language.section(u'-', 0, 0);
        if (code == u"en")
            return {};
        const QString file = QStringLiteral(":/translations/trackwise_%1.qm").arg(code);
        if (QFile::exists(file))
            return file;
    }
    return {};
}

void installTranslations(QGuiApplication &app)
{
    const QString file = translationFor(QLocale::system().uiLanguages());
    auto translator = std::make_unique<QTranslator>(&app);
    if (!file.isEmpty() && translator->load(file))
        QCoreApplication::installTranslator(translator.release()); // the application owns it
}

} // namespace trackwise
