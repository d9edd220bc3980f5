#pragma once

#include <QtCore/QString>

#include <cstddef>
#include <string_view>
#include <vector>

namespace vectorkit::dxf {

/** A group code with its value, which stands in the bytes that were read. */
struct Tag
{
    int code = 0;
    bool isBinary = false;
    std::string_view value;

    /** False, and `number` as it was, when the value is no finite number. */
    bool read(double *number) const;

    /** The same for whole numbers; a decimal one that is whole will do. */
    bool read(int *number) const;
};

/** An entity, a table entry or a block's head: all tags from one 0 to the next. */
struct Record
{
    std::string_view type;
    std::vector<Tag> tags;
    std::vector<Record> parts; ///< the vertices or attributes that belong to it
    std::size_t position = 0;  ///< line or byte where it begins, counted from 1 or 0
    bool isDamaged = false;    ///< something in it was no tag

    const Tag *find(int code) const;
    bool has(int code) const { return find(code) != nullptr; }

    /** The text of a code as it stands; empty when it isn't there. */
    std::string_view text(int code) const;

    /** The number of a code, or `fallback`; one that is none makes `isSound` false. */
    double number(int code, double fallback, bool *isSound) const;
    int integer(int code, int fallback, bool *isSound) const;
    int integer(int code, int fallback) const;
};

/**
 * Walks over the tags of a drawing, as text or as binary data.
 *
 * The bytes are borrowed from the reader of the file and outlive it.
 */
class TagReader
{
public:
    explicit TagReader(std::string_view bytes);

    bool isBinary() const { return m_binary; }

    /** All bytes were used. */
    bool atEnd() const { return m_at >= m_bytes.size() && !m_hasPending; }
    double doneShare() const;

    /** A tag other than 0 before the next one; false at a 0, at the end, and where there is none.
     */
    bool nextInRecord(Tag *tag);

    /** What the next 0 says, without its tags; empty at the end. */
    std::string_view peekType();

    /** The next entity or entry without its parts; false at the end. */
    bool readRecord(Record *record);

    /** The next entity with the vertices or attributes that follow it. */
    bool readEntity(Record *record);

    /** Passes over one record. */
    void skipRecord();

    /** A place to come back to. */
    struct Place
    {
        std::size_t at = 0;
        std::size_t line = 1;
    };
    Place place();
    void goTo(const Place &place);

    /** A place in words: "line 12" or "byte 4711". */
    QString where(std::size_t position) const;

private:
    enum class Found : quint8 { Tag, End, Damage };
    Found next(Tag *tag);
    Found nextText(Tag *tag);
    Found nextBinary(Tag *tag);
    std::string_view nextLine();
    void findNextRecord();

    std::string_view m_bytes;
    std::size_t m_at = 0;
    std::size_t m_line = 1;
    bool m_binary = false;
    bool m_hasWideCodes = false; ///< group codes of two bytes
    char m_lineEnd = '\n';
    bool m_hasPending = false; ///< the 0 that ended the last record
    bool m_sawDamage = false;  ///< since the last record began
    Tag m_pending;
    Place m_pendingPlace;
};

/** Without the blanks around it. */
std::string_view trimmed(std::string_view text);

} // namespace vectorkit::dxf
