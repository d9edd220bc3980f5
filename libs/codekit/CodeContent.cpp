#include <codekit/CodeContent_p.h>

#include <codekit/Code39_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QRegularExpression>

namespace codekit {

namespace {

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

bool isDigits(const QString &text)
{
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    return !text.isEmpty();
}

/** The first character that is not of a set; empty when all are. */
QString firstOutside(const QString &text, const QString &allowed)
{
    for (int at = 0; at < text.size(); ++at) {
        if (!allowed.contains(text[at]))
            return text[at].isHighSurrogate() ? text.mid(at, 2) : QString(text[at]);
    }
    return QString();
}

QString firstBeyond(const QString &text, ushort last)
{
    for (int at = 0; at < text.size(); ++at) {
        if (text[at].unicode() > last)
            return text[at].isHighSurrogate() ? text.mid(at, 2) : QString(text[at]);
    }
    return QString();
}

/** Half of a character beyond 16 bits, which no encoding has a place for. */
bool hasHalfCharacter(const QString &text)
{
    for (int at = 0; at < text.size(); ++at) {
        const bool isPair =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (text[at].isSurrogate() && !isPair)
            return true;
        at += isPair ? 1 : 0;
    }
    return false;
}

bool fail(QString *reason, const QString &text)
{
    *reason = text;
    return false;
}

QString label(const CodeSpec &spec) { return QLatin1String(infoOf(spec.kind).label); }

/** Digits with their check digit: added to `count` - 1 of them, looked at in `count`. */
bool completeDigits(const CodeSpec &spec, const QString &digits, int count, QString *complete,
                    QString *reason)
{
    if (!isDigits(digits) || (digits.size() != count && digits.size() != count - 1)) {
        return fail(reason, tr("%1 has %2 digits, or %3 with the check digit; this is \"%4\"")
                                .arg(label(spec))
                                .arg(count - 1)
                                .arg(count)
                                .arg(digits));
    }
    const QString before = digits.left(count - 1);
    const QString check = QString::number(checkDigitOf(before));
    if (digits.size() == count && digits.right(1) != check) {
        return fail(reason,
                    tr("the check digit of %1 is %2, not %3").arg(before, check, digits.right(1)));
    }
    *complete = before + check;
    return true;
}

/** Takes "+12" or "+12345" off the end. */
bool splitAddOn(const CodeSpec &spec, QString *digits, QString *addOn, QString *reason)
{
    const int plus = spec.content.indexOf(QLatin1Char('+'));
    *digits = spec.content.left(plus);
    if (plus < 0) {
        *digits = spec.content;
        return true;
    }
    *addOn = spec.content.mid(plus + 1);
    if (!isDigits(*addOn) || (addOn->size() != 2 && addOn->size() != 5))
        return fail(reason, tr("an add-on has 2 or 5 digits; this is \"%1\"").arg(*addOn));
    return true;
}

bool checkRetail(const CodeSpec &spec, int count, CheckedContent *checked, QString *reason)
{
    QString digits;
    QString addOn;
    QString complete;
    if (!splitAddOn(spec, &digits, &addOn, reason) ||
        !completeDigits(spec, digits, count, &complete, reason))
        return false;
    const QString tail = addOn.isEmpty() ? QString() : QLatin1Char('+') + addOn;
    checked->text = complete + tail;
    checked->reads = complete + (addOn.isEmpty() ? QString() : QLatin1Char(' ') + addOn);
    checked->human = checked->reads;
    return true;
}

bool checkUpcE(const CodeSpec &spec, CheckedContent *checked, QString *reason)
{
    QString digits;
    QString addOn;
    if (!splitAddOn(spec, &digits, &addOn, reason))
        return false;
    if (!isDigits(digits) || digits.size() < 6 || digits.size() > 8) {
        return fail(reason, tr("UPC-E has 6 digits, 7 with the number system before them, or 8 "
                               "with the check digit; this is \"%1\"")
                                .arg(digits));
    }
    const int system = digits.size() == 6 ? 0 : digits[0].digitValue();
    if (system > 1)
        return fail(reason, tr("the number system of UPC-E is 0 or 1, not %1").arg(system));
    const QString six = digits.size() == 6 ? digits : digits.mid(1, 6);
    const QString check = QString::number(checkDigitOf(upcEExpanded(system, six)));
    if (digits.size() == 8 && digits.right(1) != check)
        return fail(
            reason,
            tr("the check digit of %1 is %2, not %3").arg(digits.left(7), check, digits.right(1)));
    const QString complete = QString::number(system) + six + check;
    checked->text = complete + (addOn.isEmpty() ? QString() : QLatin1Char('+') + addOn);
    checked->reads = complete + (addOn.isEmpty() ? QString() : QLatin1Char(' ') + addOn);
    checked->human = checked->reads;
    return true;
}

/** What the encoder puts at the end, as a reader that does not look at it gives it. */
void addCheck(QChar check, CheckedContent *checked)
{
    checked->reads += check;
    checked->human = checked->reads;
}

bool checkCode39(const CodeSpec &spec, CheckedContent *checked, QString *reason)
{
    static const QString kAllowed = QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%");
    const QString other = firstOutside(spec.content, kAllowed);
    if (other.isEmpty()) {
        if (spec.hasCheckDigit)
            addCheck(checkCharacterOf39(spec.content), checked);
        return true;
    }
    if (other[0] >= QLatin1Char('a') && other[0] <= QLatin1Char('z'))
        return fail(reason, tr("Code 39 has no small letters: use Code 128"));
    return fail(reason, tr("Code 39 has no \"%1\": use Code 128 or Data Matrix").arg(other));
}

bool checkCodabar(const CodeSpec &spec, CheckedContent *checked, QString *reason)
{
    static const QRegularExpression kForm(QStringLiteral("^[A-D][0-9\\-$:/.+]+[A-D]$"));
    if (kForm.match(spec.content).hasMatch()) {
        if (spec.hasCheckDigit) // before the stop, which ends it
            checked->reads.insert(spec.content.size() - 1, checkCharacterOfCodabar(spec.content));
        checked->human = checked->reads;
        return true;
    }
    return fail(reason, tr("Codabar begins and ends with one of A to D, and between them stand "
                           "digits and - $ : / . +; this is \"%1\"")
                            .arg(spec.content));
}

bool checkInterleaved(const CodeSpec &spec, CheckedContent *checked, QString *reason)
{
    if (!isDigits(spec.content))
        return fail(reason, tr("Interleaved 2 of 5 has digits alone: use Code 128"));
    const bool isEven = (spec.content.size() + (spec.hasCheckDigit ? 1 : 0)) % 2 == 0;
    if (!isEven) {
        return fail(reason, tr("Interleaved 2 of 5 holds pairs of digits, and here one is left "
                               "over: put a 0 before them"));
    }
    if (spec.hasCheckDigit)
        addCheck(QChar(ushort(u'0' + checkDigitOf(spec.content))), checked);
    return true;
}

bool checkAscii(const CodeSpec &spec, QString *reason)
{
    const QString other = firstBeyond(spec.content, 127);
    return other.isEmpty() ||
           fail(reason, tr("%1 has no \"%2\": use Data Matrix or QR").arg(label(spec), other));
}

/** "[01]...[10]..." as a reader gives it: identifiers in round brackets for people. */
bool checkGs1(const CodeSpec &spec, CheckedContent *checked, QString *reason)
{
    static const QRegularExpression kForm(QStringLiteral("^(\\[\\d{2,4}\\][^\\[\\]]+)+$"));
    if (!kForm.match(spec.content).hasMatch()) {
        return fail(reason, tr("%1 wants application identifiers in brackets, as in "
                               "[01]04012345678901[10]LOT7; this is \"%2\"")
                                .arg(label(spec), spec.content));
    }
    if (!checkAscii(spec, reason))
        return false;
    checked->human = spec.content;
    checked->human.replace(QLatin1Char('['), QLatin1Char('('))
        .replace(QLatin1Char(']'), QLatin1Char(')'));
    checked->reads = checked->human;
    return true;
}

bool checkExtended39(const CodeSpec &spec, CheckedContent *checked, QString *reason)
{
    if (!checkAscii(spec, reason))
        return false;
    if (spec.hasCheckDigit)
        addCheck(checkCharacterOf39(spelledIn39(spec.content)), checked);
    return true;
}

// Code 128 has a way to spell Latin-1, which many scanners read as other letters; Micro QR cannot
// name a character set, so that readers guess.
bool checkPlain(const CodeSpec &spec, QString *reason)
{
    const QString other = firstBeyond(spec.content, 127);
    return other.isEmpty() ||
           fail(reason, tr("%1 has no \"%2\" that every scanner reads: use Data Matrix or QR")
                            .arg(label(spec), other));
}

// Readers take the first separator, also behind a letter or two digits, for the mark of a code
// whose elements they know.
bool checkAztec(const CodeSpec &spec, QString *reason)
{
    static const QRegularExpression kMark(QStringLiteral("^([A-Za-z]|[0-9]{2})?\\x{1D}"));
    return !kMark.match(spec.content).hasMatch() ||
           fail(reason, tr("a group separator at the beginning has another meaning in Aztec: use "
                           "Data Matrix or QR"));
}

} // namespace

int checkDigitOf(const QString &digits)
{
    int sum = 0;
    for (int at = digits.size() - 1, weight = 3; at >= 0; --at, weight = 4 - weight)
        sum += digits[at].digitValue() * weight;
    return (10 - sum % 10) % 10;
}

QString upcEExpanded(int numberSystem, const QString &six)
{
    const QString head = QString::number(numberSystem);
    const int last = six[5].digitValue();
    if (last <= 2)
        return head + six.left(2) + six[5] + QStringLiteral("0000") + six.mid(2, 3);
    if (last == 3)
        return head + six.left(3) + QStringLiteral("00000") + six.mid(3, 2);
    if (last == 4)
        return head + six.left(4) + QStringLiteral("00000") + six[4];
    return head + six.left(5) + QStringLiteral("0000") + six[5];
}

bool checkContent(const CodeSpec &spec, CheckedContent *checked, QString *reason)
{
    if (spec.content.isEmpty())
        return fail(reason, tr("there is nothing to encode"));
    if (hasHalfCharacter(spec.content))
        return fail(reason, tr("the content has half of a character, which no code can hold"));
    *checked = {spec.content, spec.content, spec.content};
    switch (spec.kind) {
    case CodeKind::Code39:
        return checkCode39(spec, checked, reason);
    case CodeKind::Code39Extended:
        return checkExtended39(spec, checked, reason);
    case CodeKind::Code93:
        return checkAscii(spec, reason);
    case CodeKind::Code128:
    case CodeKind::MicroQr:
        return checkPlain(spec, reason);
    case CodeKind::Aztec:
        return checkAztec(spec, reason);
    case CodeKind::Codabar:
        return checkCodabar(spec, checked, reason);
    case CodeKind::Interleaved25:
        return checkInterleaved(spec, checked, reason);
    case CodeKind::Itf14:
        if (!completeDigits(spec, spec.content, 14, &checked->text, reason))
            return false;
        checked->reads = checked->human = checked->text;
        checked->text.chop(1); // the encoder adds it by itself
        return true;
    case CodeKind::Ean13:
        return checkRetail(spec, 13, checked, reason);
    case CodeKind::Ean8:
        return checkRetail(spec, 8, checked, reason);
    case CodeKind::UpcA:
        return checkRetail(spec, 12, checked, reason);
    case CodeKind::UpcE:
        return checkUpcE(spec, checked, reason);
    case CodeKind::Gs1_128:
    case CodeKind::Gs1DataMatrix:
        return checkGs1(spec, checked, reason);
    default:
        return true;
    }
}

} // namespace codekit
