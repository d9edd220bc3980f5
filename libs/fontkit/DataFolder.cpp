#include "DataFolder.h"

#include <fstream>

namespace fontkit {

DataFolder::DataFolder(const QByteArray &folderPath) : m_path(folderPath) {}

std::optional<QByteArray> DataFolder::read(const QByteArray &name) const
{
    std::ifstream file((m_path + '/' + name).constData(), std::ios::binary | std::ios::ate);
    if (!file.is_open())
        return std::nullopt;
    const std::streamoff size = file.tellg();
    if (size < 0 || size > kMaxBytes)
        return std::nullopt;
    QByteArray content(static_cast<int>(size), '\0');
    file.seekg(0);
    file.read(content.data(), content.size());
    if (file.gcount() != content.size())
        return std::nullopt;
    return content;
}

QString DataFolder::shown(const QByteArray &name) const
{
    return QString::fromUtf8(name.isEmpty() ? m_path : m_path + '/' + name);
}

} // namespace fontkit
