#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace {

std::string toLocal(const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

ZTShxFontManager::ZTShxFontManager() = default;
ZTShxFontManager::ZTShxFontManager(const ZTShxFontManager &) = default;
ZTShxFontManager &ZTShxFontManager::operator=(const ZTShxFontManager &) = default;
ZTShxFontManager::~ZTShxFontManager() = default;

ZTShxFontManager *ZTShxFontManager::getInstance()
{
    // Kept for the whole process, so that a call after release(), from wherever, finds it alive.
    static ZTShxFontManager *const instance = new ZTShxFontManager;
    return instance;
}

void ZTShxFontManager::release()
{
    ZTShxFontManager &manager = *getInstance();
    for (const auto &entry : manager.m_fontCache) {
        *entry.second = ZTShxParser();
        manager.m_released[entry.first] = entry.second;
    }
    manager.m_fontCache.clear();
    manager.m_regFonts.clear();
    manager.m_bigFonts.clear();
    manager.m_fontPaths.clear();
    manager.m_scanned.clear();
    manager.m_moreFolders.clear();
}

const std::vector<std::string> &ZTShxFontManager::regFonts()
{
    ZTShxFontManager &manager = *getInstance();
    if (manager.m_regFonts.empty())
        manager.findFontFile();
    return manager.m_regFonts;
}

const std::vector<std::string> &ZTShxFontManager::bigFonts()
{
    ZTShxFontManager &manager = *getInstance();
    if (manager.m_bigFonts.empty())
        manager.findFontFile();
    return manager.m_bigFonts;
}

ZTShxParser *ZTShxFontManager::getFont(std::string name, int height)
{
    ZTShxFontManager &manager = *getInstance();
    const auto loaded = manager.m_fontCache.find(name);
    if (loaded != manager.m_fontCache.end())
        return loaded->second.get();
    const auto path = manager.m_fontPaths.find(name);
    if (path == manager.m_fontPaths.end())
        return nullptr;
    const std::shared_ptr<ZTShxParser> parser = manager.newParser(name);
    parser->init(path->second.c_str());
    parser->setTextHeight(static_cast<double>(height));
    manager.m_fontCache.emplace(std::move(name), parser);
    return parser.get();
}

bool ZTShxFontManager::hasFont(const std::string &name)
{
    const ZTShxFontManager &manager = *getInstance();
    return manager.m_fontCache.count(name) > 0 || manager.m_fontPaths.count(name) > 0;
}

std::vector<std::string> ZTShxFontManager::loadedFonts()
{
    std::vector<std::string> names;
    for (const auto &entry : getInstance()->m_fontCache)
        names.push_back(entry.first);
    return names;
}

void ZTShxFontManager::addFolder(const QString &folder)
{
    ZTShxFontManager &manager = *getInstance();
    manager.m_moreFolders.append(folder);
    manager.m_regFonts.clear();
    manager.m_bigFonts.clear();
}

void ZTShxFontManager::findFontFile()
{
    findFontFile(QCoreApplication::applicationDirPath() + QStringLiteral("/font"));
    for (const QString &folder : m_moreFolders)
        findFontFile(folder);
}

void ZTShxFontManager::findFontFile(const QString &folderPath)
{
    QDir folder(folderPath);
    folder.setFilter(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    folder.setSorting(QDir::Size | QDir::Reversed);
    folder.setNameFilters({QStringLiteral("*.shx")});
    const QFileInfoList files = folder.entryInfoList();
    for (const QFileInfo &file : files) {
        const std::string path = toLocal(file.filePath());
        const std::string name = toLocal(file.fileName());
        switch (typeOf(file, path)) {
        case SHX_TYPE::SHX_SHAPES:
        case SHX_TYPE::SHX_UNIFONT:
        case SHX_TYPE::SHX_SHAPE_ONLY:
            m_regFonts.push_back(name);
            break;
        case SHX_TYPE::SHX_BIGFONT:
            m_bigFonts.push_back(name);
            break;
        case SHX_TYPE::SHX_NONE:
            break;
        }
        m_fontPaths[name] = path;
    }
}

/** The kind of a file; reads it unless it is the same as at the scan before. */
SHX_TYPE ZTShxFontManager::typeOf(const QFileInfo &file, const std::string &path)
{
    ScannedFile &known = m_scanned[path];
    const qint64 size = file.size();
    const qint64 modifiedMs = file.lastModified().toMSecsSinceEpoch();
    const qint64 changedMs = file.metadataChangeTime().toMSecsSinceEpoch();
    if (known.size != size || known.modifiedMs != modifiedMs || known.changedMs != changedMs)
        known = {size, modifiedMs, changedMs, ZTShxParser(path.c_str()).GetType()};
    return known.type;
}

/** A parser without file; the one that this name had before a release, if there was one. */
std::shared_ptr<ZTShxParser> ZTShxFontManager::newParser(const std::string &name)
{
    const auto released = m_released.find(name);
    if (released == m_released.end())
        return std::make_shared<ZTShxParser>();
    std::shared_ptr<ZTShxParser> parser = released->second;
    m_released.erase(released);
    return parser;
}
