#include <support/ShxWriter.h>

#include <fontkit/FontReader.h>
#include <fontkit/FontSource.h>

#include <QtTest/QTest>

#include <random>

using fontkit::FontFile;
using fontkit::FontForm;
using fontkit::GlyphDefinition;

namespace {

/** Fonts out of a seed, with everything in them that a font can have. */
class RandomFonts
{
public:
    explicit RandomFonts(unsigned seed) : engine(seed) {}

    int upTo(int most) { return static_cast<int>(engine() % static_cast<unsigned>(most + 1)); }

    FontFile font(FontForm form)
    {
        FontFile result;
        result.form = form;
        result.prefix = noise(11);
        result.version = noise(upTo(fontkit::versionRoom(form)));
        while (result.version.endsWith('\x1A'))
            result.version.chop(1);
        if (form != FontForm::Unifont && upTo(3) == 0)
            result.information = std::nullopt;
        else
            fillInformation(*result.information, form);
        const int glyphs = upTo(6);
        for (int i = 0; i < glyphs; ++i)
            result.glyphs.push_back(glyph());
        if (form == FontForm::Unifont)
            fillUnifont(result);
        if (form == FontForm::Bigfont)
            fillBigfont(result);
        result.trailing = upTo(2) == 0 ? noise(upTo(30)) : QByteArray();
        return result;
    }

    /** Some bytes of a file replaced, and now and then its end cut away. */
    QByteArray damaged(QByteArray file)
    {
        const int changes = 1 + upTo(4);
        for (int i = 0; i < changes; ++i)
            file[11 + upTo(file.size() - 12)] = static_cast<char>(upTo(3) ? upTo(12) : upTo(255));
        return upTo(4) == 0 ? file.left(upTo(file.size())) : file;
    }

private:
    QByteArray noise(int size)
    {
        QByteArray bytes;
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(upTo(255));
        return bytes;
    }

    QByteArray name()
    {
        QByteArray bytes = noise(upTo(8));
        return bytes.replace('\0', "");
    }

    /** Code bytes with more codes than vectors, and operands that are cut now and then. */
    QByteArray program()
    {
        QByteArray bytes;
        const int size = upTo(40);
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(upTo(2) ? upTo(15) : upTo(255));
        return bytes;
    }

    GlyphDefinition glyph()
    {
        GlyphDefinition result;
        result.code = static_cast<quint16>(upTo(1) ? upTo(0xFFFF) : upTo(0xFF));
        result.bare = upTo(9) == 0;
        result.program = program();
        if (result.bare)
            result.program.replace('\0', "");
        else
            result.name = name();
        return result;
    }

    void fillInformation(fontkit::FontInformation &information, FontForm form)
    {
        information.name = name();
        information.above = static_cast<quint8>(upTo(255));
        information.below = static_cast<quint8>(upTo(255));
        information.modes = static_cast<quint8>(upTo(3));
        information.last = static_cast<quint8>(upTo(1) ? 0 : upTo(255));
        if (form == FontForm::Unifont) {
            information.encoding = static_cast<quint8>(upTo(2));
            information.embedding = static_cast<quint8>(upTo(2));
        }
    }

    void fillUnifont(FontFile &font)
    {
        if (upTo(2) == 0)
            font.unused = noise(4);
    }

    void fillBigfont(FontFile &font)
    {
        const int ranges = upTo(3);
        for (int i = 0; i < ranges; ++i)
            font.ranges.push_back(
                {static_cast<quint16>(upTo(0xFFFF)), static_cast<quint16>(upTo(0xFF))});
        for (GlyphDefinition &glyph : font.glyphs)
            glyph.gapBefore = upTo(4) == 0 ? noise(1 + upTo(5)) : QByteArray();
        shuffleSlots(font);
    }

    /** Glyphs and entries without definition anywhere in the index. */
    void shuffleSlots(FontFile &font)
    {
        const int entries = upTo(4);
        std::vector<int> slots;
        for (int i = 0; i < static_cast<int>(font.glyphs.size()) + entries; ++i)
            slots.push_back(i + (font.information ? 1 : 0));
        if (upTo(1))
            std::shuffle(slots.begin(), slots.end(), engine);
        for (size_t i = 0; i < font.glyphs.size(); ++i)
            font.glyphs[i].slot = slots[i];
        for (size_t i = font.glyphs.size(); i < slots.size(); ++i)
            font.entries.push_back({slots[i], 0, 0, 0});
        for (fontkit::IndexEntry &entry : font.entries) {
            if (upTo(2) == 0)
                entry = {entry.slot, static_cast<quint16>(upTo(0xFFFF)), 0,
                         static_cast<quint32>(engine())};
        }
    }

    std::mt19937 engine;
};

constexpr FontForm kForms[] = {FontForm::Shapes, FontForm::Bigfont, FontForm::Unifont};

/** File, font, source, font, file; and the source of that again. */
void compareThroughSource(const QByteArray &file, const FontFile &font)
{
    const QByteArray source = fontkit::decompileFont(font);
    QString error;
    const auto again = fontkit::compileFont(source, &error);
    QVERIFY2(again.has_value(), qPrintable(error + QLatin1Char('\n') + QString::fromUtf8(source)));
    QVERIFY2(*again == font, source.constData());
    QCOMPARE(fontkit::writeFont(*again, &error).toHex(), file.toHex());
    QCOMPARE(fontkit::decompileFont(*again), source);
}

} // namespace

/** Every file that the reader takes comes back byte by byte, also by way of its source. */
class tst_RoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomFont_comesBackByteByByte()
    {
        for (unsigned seed = 0; seed < 6000; ++seed) {
            const FontFile font = RandomFonts(seed).font(kForms[seed % 3]);
            QString error;
            const QByteArray file = fontkit::writeFont(font, &error);
            QVERIFY2(!file.isEmpty(), qPrintable(QStringLiteral("%1: %2").arg(seed).arg(error)));
            const auto read = fontkit::readFont(file, &error);
            QVERIFY2(read.has_value(), qPrintable(QStringLiteral("%1: %2").arg(seed).arg(error)));
            QCOMPARE(read->glyphs.size() + (read->information ? 1 : 0),
                     font.glyphs.size() + (font.information ? 1 : 0) - emptyDefinitions(font));
            QCOMPARE(fontkit::writeFont(*read, &error).toHex(), file.toHex());
            compareThroughSource(file, *read);
            if (QTest::currentTestFailed())
                qFatal("seed %u", seed);
        }
    }

    void damagedFile_comesBackByteByByteOrIsRefused()
    {
        int readFiles = 0;
        int refused = 0;
        for (unsigned seed = 0; seed < 12000; ++seed) {
            RandomFonts random(seed);
            const QByteArray file =
                random.damaged(fontkit::writeFont(random.font(kForms[seed % 3])));
            QString error;
            const auto read = fontkit::readFont(file, &error);
            if (!read) {
                QVERIFY(error.startsWith(QStringLiteral("offset ")));
                ++refused;
                continue;
            }
            ++readFiles;
            QCOMPARE(fontkit::writeFont(*read, &error).toHex(), file.toHex());
            compareThroughSource(file, *read);
            if (QTest::currentTestFailed())
                qFatal("seed %u", seed);
        }
        QVERIFY2(readFiles > 1000 && refused > 1000,
                 qPrintable(QStringLiteral("%1 %2").arg(readFiles).arg(refused)));
    }

    void sourceByHand_isAFixedPointAfterOnePass()
    {
        const QByteArray loose = "form bigfont\nrange 129 to 254\nname \"hand\"\nabove 8\n"
                                 "glyph 'A' slot 1\nline ne 3 # up\nlines 1,1 \\\n2,2\nend\n"
                                 "glyph 0x42\nraw 01\nraw 02 0F\nglyph 0x43 bare\n";
        QString error;
        const auto font = fontkit::compileFont(loose, &error);
        QVERIFY2(font.has_value(), qPrintable(error));
        const auto read = fontkit::readFont(fontkit::writeFont(*font));
        QVERIFY(read.has_value());
        const QByteArray once = fontkit::decompileFont(*read);
        const auto again = fontkit::readFont(fontkit::writeFont(*fontkit::compileFont(once)));
        QCOMPARE(fontkit::decompileFont(*again), once);
    }

private:
    /** A definition of no bytes at all in a bigfont is a record of its own. */
    static size_t emptyDefinitions(const FontFile &font)
    {
        if (font.form != FontForm::Bigfont)
            return 0;
        size_t count = 0;
        for (const GlyphDefinition &glyph : font.glyphs)
            count += glyph.bytes().isEmpty() ? 1 : 0;
        return count;
    }
};

QTEST_GUILESS_MAIN(tst_RoundTrip)
#include "tst_RoundTrip.moc"
