#include "CodeText_p.h"

#include <QtCore/QTextCodec>

namespace fontkit {

namespace {

constexpr int kLastAscii = 0x7E;

/** Null where there is no such codec. */
QTextCodec *gbk() { return QTextCodec::codecForName("GBK"); }

/** The bytes of a character in GBK; empty where it has none. */
QByteArray gbkBytes(const QString &character)
{
    const QTextCodec *codec = gbk();
    if (!codec)
        return {};
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QByteArray bytes = codec->fromUnicode(character.constData(), character.size(), &state);
    return state.invalidChars == 0 && codec->toUnicode(bytes) == character ? bytes : QByteArray();
}

bool canBeSeen(QChar character)
{
    return character.isLetterOrNumber() || character.isPunct() || character.isSymbol();
}

QString gbkCharacter(quint16 code)
{
    const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    const QTextCodec *codec = gbk();
    const QString character = codec ? codec->toUnicode(bytes, 2) : QString();
    return gbkBytes(character) == QByteArray(bytes, 2) ? character : QString();
}

} // namespace

QString codeText(quint16 code)
{
    const int digits = code > 0xFF ? 4 : 2;
    return QStringLiteral("0x") +
           QString::number(code, 16).toUpper().rightJustified(digits, QLatin1Char('0'));
}

std::optional<quint16> codeOf(const QString &character, FontForm form)
{
    if (character.size() != 1)
        return std::nullopt;
    const ushort unicode = character.at(0).unicode();
    if (form == FontForm::Unifont || unicode <= kLastAscii)
        return unicode;
    const QByteArray bytes = form == FontForm::Bigfont ? gbkBytes(character) : QByteArray();
    if (bytes.size() != 2)
        return std::nullopt;
    return static_cast<quint16>(static_cast<quint8>(bytes[0]) << 8 | static_cast<quint8>(bytes[1]));
}

QString characterOf(quint16 code, FontForm form)
{
    QString character;
    if (form == FontForm::Unifont || code <= kLastAscii)
        character = QChar(code);
    else if (form == FontForm::Bigfont && code > 0xFF)
        character = gbkCharacter(code);
    return character.size() == 1 && canBeSeen(character.at(0)) ? character : QString();
}

} // namespace fontkit
