#pragma once

#include <ZTDrawEngineLib/shx/ZTAbstractGlyphCallback.h>

#include <QtCore/QByteArray>

#include <vector>

namespace testsupport {

/**
 * A stroke font read the plain way: every glyph is searched from the first record of the index, and
 * its codes run one by one. What the library does faster has to give the same calls, bit for bit.
 *
 * For files of any content; a definition ends where the image ends.
 */
class PlainShxFont
{
public:
    enum class Form { Shapes, Bigfont, Unifont, None };

    explicit PlainShxFont(const QByteArray &image);

    Form form() const { return kind; }
    unsigned above() const { return ascender; }

    /** Where the definition of a code stands in the image; an offset of -1 without one. */
    struct Definition
    {
        qint64 offset = -1;
        int length = 0;
    };
    Definition find(int code) const;

    /** The codes that a byte text stands for. */
    std::vector<int> codesOf(const char *text) const;

    /** Draws the codes of a text at (0, 0) and returns its width. */
    double draw(ZTAbstractGlyphCallback *callback, const std::vector<int> &codes, double height);

private:
    using Calls = ZTAbstractGlyphCallback;

    qint64 size() const { return image.size(); }
    bool has(qint64 from, int bytes) const { return from >= 0 && from + bytes <= size(); }
    int u8(qint64 from) const { return static_cast<unsigned char>(image[static_cast<int>(from)]); }
    int s8(qint64 from) const { return static_cast<signed char>(image[static_cast<int>(from)]); }
    int u16(qint64 from) const { return u8(from) | u8(from + 1) << 8; }

    void readShapes();
    void readBigfont();
    void readUnifont();
    Definition findInUnifont(int code) const;
    void runGlyph(Calls *callback, int code);
    void runCode(Calls *callback);
    void runArc(Calls *callback, bool fractional);
    bool runPair(Calls *callback);
    bool runBulge(Calls *callback);
    void flatten(Calls *callback, const double (&circle)[3], double start, double sweep);
    void point(Calls *callback) const;
    void restart(Calls *callback, double px, double py) const;
    void end();

    QByteArray image;
    Form kind = Form::None;
    unsigned ascender = 0;
    qint64 index = 0;
    int count = 0;

    qint64 at = 0; ///< the next code byte
    int left = 0;  ///< bytes of the definition that are left
    int depth = 0;
    double x = 0;
    double y = 0;
    double scale = 0;
    bool down = false;
    std::vector<double> stack;
};

} // namespace testsupport
