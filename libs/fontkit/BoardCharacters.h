#pragma once

#include <fontkit/CharacterMaker.h>
#include <fontkit/DataFolder.h>

#include <QtCore/QMap>

namespace fontkit {

/**
 * The characters that the fonts on board share and that need no recipe: ASCII and Greek of the
 * plain Hershey fonts, and the punctuation of the big font.
 */
class BoardCharacters
{
public:
    /** Reads the Hershey data; false, and a sentence in `error`, for data that is no use. */
    bool read(const DataFolder &hershey, QString *error);

    /** One of them; no value for every other character. */
    std::optional<DrawnCharacter> of(uint character) const;

private:
    QMap<uint, DrawnCharacter> m_characters;
};

} // namespace fontkit
