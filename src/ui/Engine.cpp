// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Engine.h"

#include "ui/SymbolProvider.h"
#include "ui/Theme.h"

#include <QQmlComponent>
#include <QQmlEngine>

#include <memory>

namespace trackwise {

void prepareEngine(QQmlEngine &engine)
{
    // Not on the default path of Qt 6.4.
    engine.addImportPath(QStringLiteral(":/qt/qml"));
    // A module's types are known from its first import on, not before.
    QQmlComponent importer(&engine);
    importer.setData("import QtQml\nimport Trackwise.Ui\nQtObject {}", {});
    const std::unique_ptr<QObject> imported(importer.create());
    if (!imported)
        qFatal("cannot import Trackwise.Ui: %s", qPrintable(importer.errorString()));
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolProvider);
}

Theme &themeOf(QQmlEngine &engine)
{
    auto *theme = engine.singletonInstance<Theme *>(qmlTypeId("Trackwise.Ui", 1, 0, "Theme"));
    Q_ASSERT_X(theme, "themeOf", "the module Trackwise.Ui is not linked or the engine not prepared");
    return *theme;
}

} // namespace trackwise
