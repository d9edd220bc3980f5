#include <ZTDrawEngineLib/common/ZTFontParam.h>

#include <ZTDrawEngineLib/common/FontStream_p.h>

#include <QtCore/QDataStream>

bool operator==(const ZTFontParam &a, const ZTFontParam &b)
{
    return a.fontType == b.fontType && a.wordSpac == b.wordSpac && a.rowSpac == b.rowSpac &&
           a.font == b.font && a.shxFont == b.shxFont;
}

bool operator!=(const ZTFontParam &a, const ZTFontParam &b) { return !(a == b); }

QDataStream &operator<<(QDataStream &stream, const ZTFontParam &param)
{
    return stream << static_cast<qint32>(param.fontType) << param.wordSpac << param.rowSpac
                  << param.font << param.shxFont;
}

QDataStream &operator>>(QDataStream &stream, ZTFontParam &param)
{
    qint32 fontType = 0;
    stream >> fontType >> param.wordSpac >> param.rowSpac;
    param.fontType = static_cast<FontType>(fontType & 0xFF);
    ztstream::readFont(stream, param.font);
    stream >> param.shxFont;
    return stream;
}
