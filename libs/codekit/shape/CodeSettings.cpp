#include <codekit/shape/CodeSettings.h>

#include <QtCore/QDataStream>

#include <cmath>
#include <tuple>

namespace codekit {

namespace {

constexpr quint8 kVersion = 1;

QDataStream::Version streamVersion() { return QDataStream::Qt_5_15; }

auto membersOf(const CodeSpec &s)
{
    return std::tie(s.kind, s.level, s.version, s.mask, s.columns, s.isRectangular, s.hasCheckDigit,
                    s.hasEscapes, s.charset);
}

auto membersOf(const CodeForm &f)
{
    return std::tie(f.style, f.moduleMm, f.heightMm, f.growthMm, f.dotShare, f.isInverse);
}

/** The style of a font that counts; its size does not. */
auto styleOf(const HumanText &h)
{
    return std::make_tuple(h.font.family(), h.font.bold(), h.font.italic());
}

auto membersOf(const HumanText &h)
{
    return std::tie(h.place, h.kind, h.enName, h.zhName, h.heightMm, h.widthFactor,
                    h.charSpacingMm);
}

auto membersOf(const CodeSettings &s)
{
    return std::tie(s.isSizedByWidth, s.widthMm, s.showsQuietZone);
}

/** Takes a value of an enumeration; the stream is spoiled by one beyond `last`. */
template <class Enum>
void takeEnum(QDataStream &in, Enum last, Enum *value)
{
    quint8 number = 0;
    in >> number;
    if (number > static_cast<quint8>(last))
        in.setStatus(QDataStream::ReadCorruptData);
    else
        *value = static_cast<Enum>(number);
}

void takeNumber(QDataStream &in, int *value)
{
    qint32 number = 0;
    in >> number;
    *value = number;
}

void takeFont(QDataStream &in, QFont *font)
{
    QString family;
    bool isBold = false;
    bool isItalic = false;
    in >> family >> isBold >> isItalic;
    if (!family.isEmpty())
        font->setFamily(family);
    font->setBold(isBold);
    font->setItalic(isItalic);
}

bool isUsable(const CodeSettings &s)
{
    const auto isLength = [](double value) { return std::isfinite(value) && value > 0.0; };
    return isLength(s.form.moduleMm) && isLength(s.form.heightMm) &&
           std::isfinite(s.form.growthMm) && isLength(s.form.dotShare) && isLength(s.widthMm) &&
           isLength(s.human.heightMm) && isLength(s.human.widthFactor) &&
           std::isfinite(s.human.charSpacingMm);
}

} // namespace

bool operator==(const CodeSettings &a, const CodeSettings &b)
{
    return membersOf(a.spec) == membersOf(b.spec) && membersOf(a.form) == membersOf(b.form) &&
           membersOf(a.human) == membersOf(b.human) && styleOf(a.human) == styleOf(b.human) &&
           membersOf(a) == membersOf(b);
}

bool operator!=(const CodeSettings &a, const CodeSettings &b) { return !(a == b); }

QByteArray codeSettingsToBytes(const CodeSettings &settings)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(streamVersion());
    const CodeSpec &spec = settings.spec;
    out << kVersion << quint8(spec.kind) << qint32(spec.level) << qint32(spec.version)
        << qint32(spec.mask) << qint32(spec.columns) << spec.isRectangular << spec.hasCheckDigit
        << spec.hasEscapes << quint8(spec.charset);
    const CodeForm &form = settings.form;
    out << quint8(form.style) << form.moduleMm << form.heightMm << form.growthMm << form.dotShare
        << form.isInverse;
    const HumanText &human = settings.human;
    out << quint8(human.place) << quint8(human.kind) << human.font.family() << human.font.bold()
        << human.font.italic() << human.enName << human.zhName << human.heightMm
        << human.widthFactor << human.charSpacingMm;
    out << settings.isSizedByWidth << settings.widthMm << settings.showsQuietZone;
    return bytes;
}

bool codeSettingsFromBytes(const QByteArray &bytes, CodeSettings *settings)
{
    QDataStream in(bytes);
    in.setVersion(streamVersion());
    quint8 version = 0;
    in >> version;
    if (version != kVersion)
        return false;
    CodeSettings read;
    CodeSpec &spec = read.spec;
    takeEnum(in, CodeKind::Gs1DataMatrix, &spec.kind);
    for (int *number : {&spec.level, &spec.version, &spec.mask, &spec.columns})
        takeNumber(in, number);
    in >> spec.isRectangular >> spec.hasCheckDigit >> spec.hasEscapes;
    takeEnum(in, CodeCharset::Gbk, &spec.charset);
    CodeForm &form = read.form;
    takeEnum(in, CodeStyle::BarLines, &form.style);
    in >> form.moduleMm >> form.heightMm >> form.growthMm >> form.dotShare >> form.isInverse;
    HumanText &human = read.human;
    takeEnum(in, HumanPlace::Below, &human.place);
    takeEnum(in, FontType::None, &human.kind);
    takeFont(in, &human.font);
    in >> human.enName >> human.zhName >> human.heightMm >> human.widthFactor >>
        human.charSpacingMm;
    in >> read.isSizedByWidth >> read.widthMm >> read.showsQuietZone;
    if (in.status() != QDataStream::Ok || !in.atEnd() || !isUsable(read))
        return false;
    *settings = read;
    return true;
}

CodeSettings enlarged(const CodeSettings &settings, double factor)
{
    CodeSettings larger = settings;
    for (double *length : {&larger.form.moduleMm, &larger.form.heightMm, &larger.form.growthMm,
                           &larger.human.heightMm, &larger.human.charSpacingMm, &larger.widthMm})
        *length *= factor;
    return larger;
}

} // namespace codekit
