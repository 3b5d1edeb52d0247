// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/WavFolder.h"

#include <QFile>
#include <QtEndian>

#include <cstdio>
#include <filesystem>

namespace trackwise {

namespace {
QByteArray littleEndian(quint32 value)
{
    QByteArray bytes(4, 0);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray chunk(const char *name, QByteArray content)
{
    const auto size = static_cast<quint32>(content.size());
    if (size % 2 != 0)
        content += '\0';
    return name + littleEndian(size) + content;
}

std::filesystem::path native(const QByteArray &path)
{
    return path.toStdString();
}
} // namespace

QByteArray WavFolder::root() const
{
    return QFile::encodeName(m_folder.path()) + "/music";
}

void WavFolder::writeBytes(const QByteArray &name, const QByteArray &bytes) const
{
    const QByteArray file = path(name);
    std::filesystem::create_directories(native(file).parent_path());
    std::FILE *handle = std::fopen(file.constData(), "wb");
    if (!handle || std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), handle) !=
                       static_cast<std::size_t>(bytes.size()))
        qFatal("cannot write %s", file.constData());
    std::fclose(handle);
}

void WavFolder::write(const QByteArray &name, int sound, const QByteArray &title,
                      const QByteArray &artist) const
{
    constexpr int samples = 800; // at 8000 Hz, 8 bits, mono
    QByteArray data(samples, 0);
    for (int i = 0; i < samples; ++i)
        data[i] = static_cast<char>((i * (sound + 3) + sound) % 251);
    const QByteArray format = QByteArray::fromHex("01000100401f0000401f000001000800");
    const QByteArray tags = "INFO" + chunk("INAM", title) + chunk("IART", artist);
    writeBytes(name,
               chunk("RIFF", "WAVE" + chunk("fmt ", format) + chunk("data", data) + chunk("LIST", tags)));
}

void WavFolder::makeFolder(const QByteArray &name) const
{
    std::filesystem::create_directories(native(path(name)));
}

void WavFolder::move(const QByteArray &from, const QByteArray &to) const
{
    std::filesystem::create_directories(native(path(to)).parent_path());
    std::filesystem::rename(native(path(from)), native(path(to)));
}

void WavFolder::copy(const QByteArray &from, const QByteArray &to) const
{
    std::filesystem::create_directories(native(path(to)).parent_path());
    std::filesystem::copy_file(native(path(from)), native(path(to)),
                               std::filesystem::copy_options::overwrite_existing);
}

void WavFolder::remove(const QByteArray &name) const
{
    std::filesystem::remove_all(native(path(name)));
}

} // namespace trackwise
