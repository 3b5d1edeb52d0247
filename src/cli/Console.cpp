// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Console.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace trackwise::cli {

namespace {

constexpr int gap = 2;
constexpr int usualTerminalWidth = 80;
constexpr char clearLine[] = "\r\x1b[K"; // ECMA-48, EL

bool turnsDirection(char32_t c)
{
    return (c >= 0x202a && c <= 0x202e) || (c >= 0x2066 && c <= 0x2069);
}

int columnsOf(char32_t c)
{
    const auto character = static_cast<UChar32>(c);
    switch (u_charType(character)) {
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
    case U_FORMAT_CHAR:
        return 0;
    default:
        break;
    }
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

int terminalWidth()
{
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usualTerminalWidth;
}

QString shortened(const QString &text, int columns)
{
    QString kept;
    int used = 0;
    for (const char32_t c : text.toUcs4()) {
        used += columnsOf(c);
        if (used >= columns)
            return kept;
        kept += QChar::fromUcs4(c);
    }
    return kept;
}

} // namespace

QString printable(const QString &text)
{
    constexpr char32_t pictureOfNull = 0x2400; // "Control Pictures" of Unicode, in the order of ASCII
    constexpr char32_t pictureOfDelete = 0x2421;
    constexpr char32_t replacement = 0xfffd;
    QString shown;
    shown.reserve(text.size());
    for (char32_t c : text.toUcs4()) {
        if (c == U'\t')
            c = U' ';
        else if (c < 0x20 && c != U'\n')
            c += pictureOfNull;
        else if (c == 0x7f)
            c = pictureOfDelete;
        else if ((c >= 0x80 && c < 0xa0) || turnsDirection(c) || (c >= 0xd800 && c < 0xe000))
            c = replacement;
        shown += QChar::fromUcs4(c);
    }
    return shown;
}

int columnsOf(const QString &text)
{
    int columns = 0;
    for (const char32_t c : text.toUcs4())
        columns += columnsOf(c);
    return columns;
}

QString table(const std::vector<std::pair<QString, QString>> &rows)
{
    int widest = 0;
    for (const auto &row : rows)
        widest = std::max(widest, columnsOf(row.first));
    const QString indent(widest + gap, u' ');
    QString text;
    for (const auto &[name, value] : rows) {
        QString lines = printable(value);
        // Line ends as the several systems write them, seen as one.
        lines.replace(QStringLiteral("\u240d\n"), QStringLiteral("\n")).replace(QChar(0x240d), u'\n');
        text += name + QString(widest - columnsOf(name) + gap, u' ') + lines.replace(u'\n', u'\n' + indent) +
                u'\n';
    }
    return text;
}

void keepStreamsTaken()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0)
            (void)open("/dev/null", O_RDONLY); // the lowest free number is this one; writing fails
}

bool write(const QByteArray &bytes)
{
    const auto size = static_cast<size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stdout) == size;
}

void print(const QString &text)
{
    write(text.toUtf8());
}

bool finishOutput()
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return true;
    complain(QStringLiteral("cannot write the output: ") + QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

void complain(const QString &text)
{
    std::fprintf(stderr, "trackwise: %s\n", qUtf8Printable(printable(text)));
}

StatusLine::StatusLine()
    : m_isTerminal(isatty(STDERR_FILENO) == 1)
{}

StatusLine::~StatusLine()
{
    if (m_isShown)
        std::fputs(clearLine, stderr);
}

void StatusLine::show(const QString &text)
{
    if (!m_isTerminal)
        return;
    const QString line = shortened(printable(text).replace(u'\n', u' '), terminalWidth());
    std::fprintf(stderr, "%s%s", clearLine, qUtf8Printable(line));
    std::fflush(stderr);
    m_isShown = true;
}

} // namespace trackwise::cli
