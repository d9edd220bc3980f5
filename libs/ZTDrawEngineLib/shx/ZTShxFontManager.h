#pragma once

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

#include <map>
#include <memory>
#include <string>
#include <vector>

class QFileInfo;

/**
 * The stroke fonts in the folder "font" beside the program, and in others that a host adds: lists
 * them by kind, and keeps one loaded parser per file.
 *
 * Names are file names with their extension, in the local 8-bit encoding.
 * Order: GUI thread only. `regFonts` and `bigFonts` scan the folder; `getFont` knows what a scan
 * has seen, and never scans itself.
 * Owner: the manager owns every parser that it hands out.
 * Failure: a missing folder, or one without fonts, gives empty lists and no message.
 */
class ZTDRAWENGINELIB_EXPORT ZTShxFontManager
{
public:
    /** A copy lists what this one has found, and shares its parsers. */
    ZTShxFontManager(const ZTShxFontManager &other);
    ZTShxFontManager &operator=(const ZTShxFontManager &other);
    ~ZTShxFontManager();

    /** The sole instance, made on first use without a look at the disk; the same one always. */
    static ZTShxFontManager *getInstance();

    /**
     * Forgets all fonts and frees their images; the next use scans the folder anew.
     *
     * For the end of the process. Afterwards the pointers of `getInstance` and `getFont` still
     * stand: a released font draws nothing until `getFont` loads it once more.
     */
    static void release();

    /**
     * Names of the regular fonts, smallest file first; scans the folder while the list is empty.
     *
     * Kept: a scan that an empty list of one kind brings about appends to the other list once more,
     * so that names repeat as long as a kind is missing.
     */
    static const std::vector<std::string> &regFonts();

    /** Names of the big fonts; otherwise as `regFonts`. */
    static const std::vector<std::string> &bigFonts();

    /**
     * The parser of a font file; loaded on first use and the same one for everybody after.
     *
     * Failure: null for a name that no scan has seen. A file that is no font gives a parser of
     * `SHX_NONE`.
     * Kept: `height` is the text height of a newly loaded font; one in use keeps its own.
     */
    static ZTShxParser *getFont(std::string name, int height);

    /** Whether `getFont` would give a parser for the name; neither loads nor scans. */
    static bool hasFont(const std::string &name);

    /** Names of the fonts whose parsers `getFont` has handed out, in the order of their bytes. */
    static std::vector<std::string> loadedFonts();

    /**
     * Scans this folder as well from now on, behind the one beside the program and the folders
     * added before; the lists are made anew. Of fonts with one name, the one added last is loaded,
     * unless the name is loaded already. Until `release`.
     */
    static void addFolder(const QString &folder);

private:
    /** What a scan learned of a file, good while the file's size and times stay. */
    struct ScannedFile
    {
        qint64 size = -1;
        qint64 modifiedMs = -1; ///< its content
        qint64 changedMs = -1;  ///< its content or its permissions
        SHX_TYPE type = SHX_TYPE::SHX_NONE;
    };
    using FontMap = std::map<std::string, std::shared_ptr<ZTShxParser>>;

    ZTShxFontManager();

    void findFontFile();
    void findFontFile(const QString &folderPath);
    SHX_TYPE typeOf(const QFileInfo &file, const std::string &path);
    std::shared_ptr<ZTShxParser> newParser(const std::string &name);

    FontMap m_fontCache; ///< loaded, by file name
    std::vector<std::string> m_regFonts;
    std::vector<std::string> m_bigFonts;
    std::map<std::string, std::string> m_fontPaths; ///< of every file seen, by file name
    std::map<std::string, ScannedFile> m_scanned;   ///< by path
    QStringList m_moreFolders;                      ///< scanned behind the one beside the program
    FontMap m_released; ///< emptied parsers that somebody may still point at, by file name
};
