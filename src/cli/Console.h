// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include <utility>
#include <vector>

namespace trackwise::cli {

/// Outside text made safe for a terminal: control characters, and with them escape sequences, become signs
/// that can be seen; characters that turn the writing direction of others become "�". Line ends stay.
[[nodiscard]] QString printable(const QString &text);

/// How many columns a terminal takes for @p text: two for wide East Asian characters, none for marks.
[[nodiscard]] int columnsOf(const QString &text);

/// Two columns: names, and values that begin below each other. Further lines of a value are indented.
[[nodiscard]] QString table(const std::vector<std::pair<QString, QString>> &rows);

/// Keeps files from being opened in place of standard streams that are closed: they would be printed into.
void keepStreamsTaken();
/// To the output; false once it takes no more.
bool write(const QByteArray &bytes);
void print(const QString &text);
/// Complains where not all of the output could be written, such as on a full disk: whether it could.
[[nodiscard]] bool finishOutput();
/// To the error output, as a line of its own that begins with the program's name.
void complain(const QString &text);

/// A line on the error output that is written again and again; nothing where that is not a terminal.
class StatusLine
{
public:
    StatusLine();
    ~StatusLine();
    StatusLine(const StatusLine &) = delete;
    StatusLine &operator=(const StatusLine &) = delete;

    void show(const QString &text);

private:
    bool m_isTerminal;
    bool m_isShown = false;
};

} // namespace trackwise::cli
