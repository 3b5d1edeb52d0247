// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"
#include "support/Test.h"
#include "ui/Translations.h"

#include <QDir>
#include <QRegularExpression>
#include <QTranslator>
#include <QXmlStreamReader>

namespace {

struct Message
{
    QString context, source, state;
    bool isPlural = false;
    QStringList forms;
};

struct Catalogue
{
    QString language;
    QList<Message> messages;
};

Catalogue catalogueIn(const QString &path)
{
    Catalogue catalogue;
    QString context;
    for (QXmlStreamReader xml(contentsOf(path)); !xml.atEnd();) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto name = xml.name();
        if (name == u"TS") {
            catalogue.language = xml.attributes().value(u"language"_s).toString();
        } else if (name == u"name") {
            context = xml.readElementText();
        } else if (name == u"message") {
            catalogue.messages.append(
                {.context = context, .isPlural = xml.attributes().hasAttribute(u"numerus"_s)});
        } else if (name == u"source") {
            catalogue.messages.last().source = xml.readElementText();
        } else if (name == u"translation") {
            Message &message = catalogue.messages.last();
            message.state = xml.attributes().value(u"type"_s).toString();
            if (!message.isPlural)
                message.forms = {xml.readElementText()};
        } else if (name == u"numerusform") {
            catalogue.messages.last().forms.append(xml.readElementText());
        }
    }
    return catalogue;
}

/// What a text and its translation have in common: values filled in, mnemonics, line breaks, blanks around
/// it, and whether more is asked for ("…").
QString shapeOf(const QString &text)
{
    static const QRegularExpression shared(uR"(%L?(\d+|n)|&(?=\w)|\n|^\s|\s$|(…|\.\.\.)$)"_s);
    QStringList parts;
    for (const auto &match : shared.globalMatch(text))
        parts.append(match.captured());
    parts.sort();
    return parts.join(u'|');
}

/// A form without its number is right where it stands for one number only ("two songs" in Arabic).
bool tellsEveryNumber(const QTranslator &translator, const Message &message)
{
    QSet<QString> numberless;
    for (int count = 0; count <= 200; ++count) {
        const QString text = translator.translate(message.context.toUtf8().constData(),
                                                  message.source.toUtf8().constData(), nullptr, count);
        if (text.isEmpty() || (shapeOf(text) != shapeOf(message.source) && numberless.contains(text)))
            return false;
        numberless.insert(text);
    }
    return true;
}

QString faultOf(const Message &message, const QTranslator &translator)
{
    if (!message.state.isEmpty() || message.forms.isEmpty() || message.forms.contains(QString()))
        return u"is not translated"_s;
    if (message.isPlural && !tellsEveryNumber(translator, message))
        return u"lacks the number, or a plural form"_s;
    const QString shape = shapeOf(message.source),
                  number = message.source.contains(u"%Ln") ? u"%Ln"_s : u"%n"_s;
    for (QString form : message.forms) {
        if (message.isPlural && !form.contains(number))
            form += number; // is right so; see above
        if (shapeOf(form) != shape)
            return u"differs in what is filled in, in mnemonics, blanks, line breaks or the ellipsis"_s;
    }
    return {};
}

} // namespace

class tst_Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheFirstLanguageThatWeHave()
    {
        const QString german = u":/translations/trackwise_de.qm"_s;
        QCOMPARE(translationFor({u"de-DE"_s, u"de"_s}), german);
        QCOMPARE(translationFor({u"de-CH"_s}), german);
        QCOMPARE(translationFor({u"tlh"_s, u"de"_s}), german);
        QCOMPARE(translationFor({u"en-US"_s, u"de"_s}), QString()); // English comes first, and is there
        QCOMPARE(translationFor({u"tlh"_s}), QString());
        QCOMPARE(translationFor({}), QString());
    }

    void everyTextIsTranslatedWhole_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &file : QDir(QStringLiteral(TRACKWISE_TRANSLATIONS)).entryList({u"*.ts"_s}))
            QTest::addRow("%s", qPrintable(file)) << file.chopped(3);
    }

    void everyTextIsTranslatedWhole()
    {
        QFETCH(const QString, name);
        const Catalogue catalogue = catalogueIn(QStringLiteral(TRACKWISE_TRANSLATIONS "/%1.ts").arg(name));
        QTranslator translator;
        QVERIFY2(translator.load(u":/translations/%1.qm"_s.arg(name)), "is not among translation_files");
        QCOMPARE(u"trackwise_"_s + catalogue.language.section(u'_', 0, 0), name); // decides about plurals
        QCOMPARE(translator.translate("QGuiApplication", "QT_LAYOUT_DIRECTION"),
                 QLocale(catalogue.language).textDirection() == Qt::RightToLeft ? u"RTL"_s : u"LTR"_s);
        QStringList faults;
        for (const Message &message : catalogue.messages) {
            if (const QString fault = faultOf(message, translator); !fault.isEmpty())
                faults.append(u"%1: “%2” %3"_s.arg(message.context, message.source, fault));
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
};

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_Translations.moc"
