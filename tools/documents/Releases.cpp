// SPDX-License-Identifier: GPL-3.0-or-later
#include "Releases.h"

#include <QLocale>
#include <QTextStream>
#include <QXmlStreamReader>

namespace {

bool isTranslation(const QXmlStreamReader &xml)
{
    return xml.attributes().hasAttribute(QStringLiteral("xml:lang"));
}

// Lines of a note: the first behind its bullet, all within 80 columns.
QString bulleted(const QString &note)
{
    constexpr qsizetype width = 80;
    QString text;
    QString line = QStringLiteral("  *");
    for (const QString &word : note.split(u' ')) {
        if (line.size() + 1 + word.size() > width) {
            text += line + u'\n';
            line = QStringLiteral("   ");
        }
        line += u' ' + word;
    }
    return text + line + u'\n';
}

} // namespace

std::vector<Release> releasesIn(const QByteArray &metainfo)
{
    std::vector<Release> releases;
    QXmlStreamReader xml(metainfo);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto attribute = [&xml](const char *name) {
            return xml.attributes().value(QLatin1String(name)).toString();
        };
        if (xml.name() == u"release")
            releases.push_back({attribute("version"), QDate::fromString(attribute("date"), Qt::ISODate), {}});
        else if (!releases.empty() && (xml.name() == u"p" || xml.name() == u"li") && !isTranslation(xml))
            releases.back().notes << xml.readElementText().simplified();
        if (!releases.empty() && (releases.back().version.isEmpty() || !releases.back().date.isValid()))
            return {};
    }
    return xml.hasError() ? std::vector<Release>() : releases;
}

QByteArray debianChangelog(const std::vector<Release> &releases, const QString &maintainer)
{
    QString text;
    QTextStream out(&text);
    for (const Release &release : releases) {
        out << "trackwise (" << release.version << ") unstable; urgency=medium\n\n";
        for (const QString &note : release.notes)
            out << bulleted(note);
        const QString day = QLocale::c().toString(release.date, QStringLiteral("ddd, dd MMM yyyy"));
        out << "\n -- " << maintainer << "  " << day << " 00:00:00 +0000\n\n";
    }
    out.flush();
    return text.toUtf8();
}
