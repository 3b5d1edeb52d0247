// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/FilePaths.h"

#include <cstdlib>
#include <filesystem>
#include <memory>

namespace trackwise {

QByteArray absolutePath(const QByteArray &path)
{
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(path.toStdString(), error).lexically_normal();
    if (!absolute.has_filename() && absolute.has_relative_path())
        absolute = absolute.parent_path(); // "folder/"
    return QByteArray::fromStdString(absolute.string());
}

QByteArray resolvedPath(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.constData(), nullptr), &std::free);
    return real ? QByteArray(real.get()) : QByteArray();
}

} // namespace trackwise
