// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>

namespace trackwise {

/// A folder for files, such as real music: a tenth of a second of WAV, tagged. Paths are relative to it.
class WavFolder
{
public:
    WavFolder() { makeFolder({}); }
    /// The songs of these files have their names as titles, and the sounds 1, 2, and so on.
    WavFolder(std::initializer_list<const char *> files)
        : WavFolder()
    {
        int sound = 0;
        for (const char *file : files)
            write(file, ++sound, QByteArray::fromStdString(native(file).stem().string()));
    }

    [[nodiscard]] QByteArray root() const { return QFile::encodeName(m_folder.path()) + "/music"; }
    [[nodiscard]] QByteArray path(const QByteArray &name) const { return root() + '/' + name; }

    /// Another number is another sound.
    void write(const QByteArray &name, int sound, const QByteArray &title,
               const QByteArray &artist = "Ann") const
    {
        QByteArray data(800, 0); // at 8000 Hz, 8 bits, mono
        for (int i = 0; i < data.size(); ++i)
            data[i] = static_cast<char>((i * (sound + 3) + sound) % 251);
        const QByteArray format = QByteArray::fromHex("01000100401f0000401f000001000800");
        const QByteArray tags = "INFO" + chunk("INAM", title) + chunk("IART", artist);
        writeBytes(name,
                   chunk("RIFF", "WAVE" + chunk("fmt ", format) + chunk("data", data) + chunk("LIST", tags)));
    }
    void writeBytes(const QByteArray &name, const QByteArray &bytes) const
    {
        std::ofstream file(madeRoomFor(name), std::ios::binary);
        file.write(bytes.constData(), bytes.size());
        file.close();
        if (!file)
            qFatal("cannot write %s", path(name).constData());
    }
    void makeFolder(const QByteArray &name) const { std::filesystem::create_directories(native(name)); }
    void move(const QByteArray &from, const QByteArray &to) const
    {
        std::filesystem::rename(native(from), madeRoomFor(to));
    }
    void copy(const QByteArray &from, const QByteArray &to) const
    {
        std::filesystem::copy_file(native(from), madeRoomFor(to),
                                   std::filesystem::copy_options::overwrite_existing);
    }
    /// Commands of the shell, within it.
    void run(const QByteArray &commands) const
    {
        if (std::system(("set -e; cd '" + root() + "'; " + commands).constData()) != 0)
            qFatal("failed: %s", commands.constData());
    }
    void remove(const QByteArray &name) const { std::filesystem::remove_all(native(name)); }

private:
    static QByteArray chunk(const char *name, const QByteArray &content)
    {
        QByteArray size(4, 0);
        qToLittleEndian(static_cast<quint32>(content.size()), size.data());
        return name + size + content + QByteArray(content.size() % 2, 0);
    }
    [[nodiscard]] std::filesystem::path native(const QByteArray &name) const
    {
        return path(name).toStdString();
    }
    [[nodiscard]] std::filesystem::path madeRoomFor(const QByteArray &name) const
    {
        std::filesystem::create_directories(native(name).parent_path());
        return native(name);
    }

    QTemporaryDir m_folder;
};

} // namespace trackwise
