#include <ZTDrawEngineLib/common/ZTShxFontParam.h>

#include <QtCore/QDataStream>

#include <cmath>

namespace {

/** The fonts are shared: another height would make every text in them vanish, not only this one. */
bool isUsableHeight(double height)
{
    constexpr double kLeast = 1e-6;
    constexpr double kMost = 1e6;
    return std::abs(height) >= kLeast && std::abs(height) <= kMost;
}

} // namespace

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
    if (isUsableHeight(param.height))
        param.parser.setTextHeight(param.height);
    else
        param.parser = ZTRegBigFontShxParser();
    return stream;
}
