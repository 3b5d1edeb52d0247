// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/DroppedUrls.h"

#include <QMimeData>
#include <QRegularExpression>
#include <QStringConverter>
#include <QUrl>

namespace trackwise {

namespace {

constexpr qsizetype longestText = qsizetype{64} * 1024;
constexpr const char *hrefPattern = R"re(\bhref\s*=\s*(?:"([^"]*)"|'([^']*)'))re";

// An address that says how it is reached, so "https://..." but neither "music" nor "a:b".
bool isAddress(const QString &text)
{
    const QUrl url(text);
    return url.isValid() && !url.scheme().isEmpty() && text.contains(QLatin1StringView("://"));
}

QStringList addressesIn(const QStringList &words)
{
    QStringList found;
    for (const QString &word : words) {
        if (isAddress(word))
            found << word;
    }
    return found;
}

QStringList fromUriList(const QMimeData &data)
{
    QStringList found;
    for (const QUrl &url : data.urls()) {
        if (url.isValid() && !url.isRelative()) // a relative one is a comment or junk
            found << url.toString(QUrl::FullyEncoded);
    }
    return found;
}

// Lines of UTF-16 in the machine's byte order: an address, its title, the next address, its title.
QStringList fromBrowserLink(const QMimeData &data)
{
    const QByteArray bytes = data.data(QStringLiteral("text/x-moz-url")).left(longestText);
    const QString text = QStringDecoder(QStringDecoder::Utf16)(bytes);
    return addressesIn(text.split(u'\n', Qt::SkipEmptyParts));
}

QStringList fromText(const QMimeData &data)
{
    static const QRegularExpression space(QStringLiteral("\\s+"));
    return addressesIn(data.text().left(longestText).split(space, Qt::SkipEmptyParts));
}

QStringList fromHtml(const QMimeData &data)
{
    static const QRegularExpression href(QString::fromLatin1(hrefPattern),
                                         QRegularExpression::CaseInsensitiveOption);
    const QString html = data.html().left(longestText);
    QStringList links;
    for (auto match = href.globalMatch(html); match.hasNext();) {
        const QRegularExpressionMatch link = match.next();
        QString address = (link.hasCaptured(1) ? link.captured(1) : link.captured(2)).trimmed();
        links << address.replace(QLatin1StringView("&amp;"), QLatin1StringView("&"));
    }
    return addressesIn(links);
}

} // namespace

QStringList droppedUrls(const QMimeData &data)
{
    for (const auto &read : {fromUriList, fromBrowserLink, fromText, fromHtml}) {
        const QStringList found = read(data);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

} // namespace trackwise
