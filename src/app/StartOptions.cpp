// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartOptions.h"

#include "app/AddressOpening.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace trackwise {

namespace {

std::optional<QSize> sizeFrom(const QString &text)
{
    const QStringList parts = text.split(u'x');
    if (parts.size() != 2)
        return std::nullopt;
    const QSize size(parts.at(0).toInt(), parts.at(1).toInt());
    return size.isEmpty() ? std::nullopt : std::optional(size);
}

// What QGuiApplication and its platforms take for themselves.
QList<QCommandLineOption> optionsOfQt()
{
    QList<QCommandLineOption> options;
    for (const char *name :
         {"platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry", "qwindowicon",
          "qwindowtitle", "session", "display", "geometry", "qmljsdebugger"})
        options << QCommandLineOption(QLatin1String(name), {}, QStringLiteral("VALUE"));
    options << QCommandLineOption(QStringLiteral("reverse"));
    for (QCommandLineOption &option : options)
        option.setFlags(QCommandLineOption::HiddenFromHelp);
    return options;
}

std::optional<QString> whyWrong(const QCommandLineParser &parser, const QStringList &operands,
                                const QList<QCommandLineOption> &withValue)
{
    for (const QCommandLineOption &option : withValue)
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return QStringLiteral("--%1 needs a value").arg(option.names().constFirst());
    for (const QString &operand : operands)
        if (!isAddress(operand) && !QFileInfo::exists(operand))
            return QStringLiteral("neither a command, an address nor a file that is there: %1").arg(operand);
    const QString folder = parser.value(QStringLiteral("folder"));
    if (!folder.isEmpty() && !QFileInfo(folder).isDir())
        return QStringLiteral("no such folder: %1").arg(folder);
    return std::nullopt;
}

} // namespace

bool StartOptions::canBeHandedOver() const
{
    StartOptions plain;
    plain.addresses = addresses;
    return *this == plain;
}

Result<StartOptions> parseStartOptions(const QStringList &arguments)
{
    const QCommandLineOption demo(QStringLiteral("demo"), QStringLiteral("Use the demo library."));
    const QCommandLineOption show(
        QStringLiteral("show"),
        QStringLiteral("Show this song: a file, an identifier, or words to search for."),
        QStringLiteral("SONG"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Save a picture of the window once the song is drawn, then quit."),
        QStringLiteral("FILE"));
    const QCommandLineOption library(QStringLiteral("library"),
                                     QStringLiteral("Keep the library in this file."), QStringLiteral("DB"));
    const QCommandLineOption folder(QStringLiteral("folder"),
                                    QStringLiteral("Look for music in this folder."), QStringLiteral("DIR"));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Size of the window in points."),
                                  QStringLiteral("WIDTHxHEIGHT"));

    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions); // as Qt's own are written
    parser.setApplicationDescription(
        QStringLiteral("Shows everything that a music library knows about one song.\n\n"
                       "Without a window: trackwise info, trackwise library (see their --help)."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("ADDRESS"),
                                 QStringLiteral("Show the song of this link, or of this file."),
                                 QStringLiteral("[ADDRESS...]"));
    parser.addOptions({demo, show, screenshot, library, folder, size});
    parser.addOptions(optionsOfQt());
    if (!parser.parse(arguments))
        return Failure{FailureKind::Malformed, parser.errorText()};

    StartOptions options;
    if (parser.isSet(help) || parser.isSet(QStringLiteral("help-all")))
        options.answer = parser.helpText();
    else if (parser.isSet(version))
        options.answer = QStringLiteral("trackwise %1\n").arg(QCoreApplication::applicationVersion());
    if (options.answer)
        return options;
    if (const auto why = whyWrong(parser, parser.positionalArguments(), {show, screenshot, library, folder}))
        return Failure{FailureKind::Malformed, *why};
    options.usesDemoLibrary = parser.isSet(demo);
    options.addresses = addressesOf(parser.positionalArguments(), QDir::currentPath());
    options.show = parser.value(show);
    options.screenshotFile = parser.value(screenshot);
    options.database = parser.value(library);
    options.folder = parser.value(folder);
    if (parser.isSet(size)) {
        options.size = sizeFrom(parser.value(size));
        if (!options.size)
            return Failure{FailureKind::Malformed, QStringLiteral("not a size: %1").arg(parser.value(size))};
    }
    return options;
}

} // namespace trackwise
