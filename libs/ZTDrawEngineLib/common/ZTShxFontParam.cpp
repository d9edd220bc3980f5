#include <ZTDrawEngineLib/common/ZTShxFontParam.h>

#include <QtCore/QDataStream>

#include <cmath>

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
    if (std::isfinite(param.height) && param.height != 0)
        param.parser.setTextHeight(param.height);
    else // such a height would make every text in these fonts vanish, not only this one
        param.parser = ZTRegBigFontShxParser();
    return stream;
}
