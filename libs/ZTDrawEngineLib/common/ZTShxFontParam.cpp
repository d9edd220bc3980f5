#include <ZTDrawEngineLib/common/ZTShxFontParam.h>

#include <QtCore/QDataStream>

bool operator==(const ZTShxFontParam &a, const ZTShxFontParam &b)
{
    return a.zhName == b.zhName && a.enName == b.enName && a.height == b.height;
}

bool operator!=(const ZTShxFontParam &a, const ZTShxFontParam &b) { return !(a == b); }

QDataStream &operator<<(QDataStream &stream, const ZTShxFontParam &param)
{
    return stream << param.zhName << param.enName << param.height;
}

QDataStream &operator>>(QDataStream &stream, ZTShxFontParam &param)
{
    stream >> param.zhName >> param.enName >> param.height;
    // The stream holds the big font first, the pair takes the regular one first.
    param.parser.init(param.enName.toLocal8Bit().constData(),
                      param.zhName.toLocal8Bit().constData());
    param.parser.setTextHeight(param.height);
    return stream;
}
