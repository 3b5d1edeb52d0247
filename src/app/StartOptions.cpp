// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartOptions.h"

#include "app/AddressOpening.h"
#include "cli/CommandLine.h"
#include "cli/Syntax.h"

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

QString text(std::string_view of)
{
    return QString::fromUtf8(of.data(), static_cast<qsizetype>(of.size()));
}

QList<QCommandLineOption> ownOptions()
{
    QList<QCommandLineOption> options;
    for (const cli::Option &option : cli::startOptions()) {
        QStringList names{text(option.name)};
        if (option.letter != '\0')
            names.prepend(QString(QLatin1Char(option.letter)));
        options << QCommandLineOption(names, text(option.help), text(option.value));
    }
    return options;
}

// What QGuiApplication and its platforms take for themselves.
QList<QCommandLineOption> optionsOfQt()
{
    QList<QCommandLineOption> options;
    for (const char *name :
         {"platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry", "qwindowicon",
          "qwindowtitle", "session", "display", "geometry", "qmljsdebugger"})
        options << QCommandLineOption(QLatin1String(name), {}, QStringLiteral("VALUE"));
    options << QCommandLineOption(QStringLiteral("reverse"))
            << QCommandLineOption(QStringLiteral("help-all"));
    for (QCommandLineOption &option : options)
        option.setFlags(QCommandLineOption::HiddenFromHelp);
    return options;
}

std::optional<QString> whyWrong(const QCommandLineParser &parser, const QStringList &operands)
{
    for (const cli::Option &option : cli::startOptions()) {
        if (!option.takesValue() || !parser.isSet(text(option.name)))
            continue;
        const QString value = parser.value(text(option.name));
        if (value.isEmpty())
            return QStringLiteral("--%1 needs a value").arg(text(option.name));
        const QStringList choices = text(option.choices).split(u' ', Qt::SkipEmptyParts);
        if (!choices.isEmpty() && !choices.contains(value))
            return QStringLiteral("--%1 is one of %2").arg(text(option.name), choices.join(u", "));
    }
    if (parser.isSet(QStringLiteral("action")) && !operands.isEmpty())
        return QStringLiteral("either an action or something to show");
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
    plain.action = action;
    return *this == plain;
}

Result<StartOptions> parseStartOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions); // as Qt's own are written
    parser.setApplicationDescription(
        QStringLiteral("Shows everything that a music library knows about one song."));
    parser.addPositionalArgument(text(cli::startOperand().name), text(cli::startOperand().help),
                                 QStringLiteral("[%1...]").arg(text(cli::startOperand().name)));
    parser.addOptions(ownOptions());
    parser.addOptions(optionsOfQt());
    if (!parser.parse(arguments))
        return Failure{FailureKind::Malformed, parser.errorText()};

    StartOptions options;
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all")))
        options.answer = parser.helpText() + QStringLiteral("\nWithout a window:\n") +
                         QString::fromUtf8(cli::commandsHelp());
    else if (parser.isSet(QStringLiteral("version")))
        options.answer = QStringLiteral("trackwise %1\n").arg(QCoreApplication::applicationVersion());
    if (options.answer)
        return options;
    if (const auto why = whyWrong(parser, parser.positionalArguments()))
        return Failure{FailureKind::Malformed, *why};
    options.usesDemoLibrary = parser.isSet(QStringLiteral("demo"));
    options.addresses = addressesOf(parser.positionalArguments(), QDir::currentPath());
    options.action = parser.value(QStringLiteral("action"));
    options.show = parser.value(QStringLiteral("show"));
    options.screenshotFile = parser.value(QStringLiteral("screenshot"));
    options.database = parser.value(QStringLiteral("library"));
    options.folder = parser.value(QStringLiteral("folder"));
    if (parser.isSet(QStringLiteral("size"))) {
        options.size = sizeFrom(parser.value(QStringLiteral("size")));
        if (!options.size)
            return Failure{FailureKind::Malformed,
                           QStringLiteral("not a size: %1").arg(parser.value(QStringLiteral("size")))};
    }
    return options;
}

} // namespace trackwise
