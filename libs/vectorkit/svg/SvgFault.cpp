#include <vectorkit/svg/SvgFault_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QXmlStreamReader>

namespace vectorkit {

namespace {

struct Fault
{
    const char *what;
    const char *advice;
};

const char kSaveAgain[] =
    QT_TRANSLATE_NOOP("vectorkit", "Save it again with the program that wrote it.");
const char kEdit[] = QT_TRANSLATE_NOOP("vectorkit", "Take it out with a text editor.");

bool isInComment(const QByteArray &read)
{
    const int begin = read.lastIndexOf("<!--");
    return begin >= 0 && read.indexOf("-->", begin) < 0;
}

/** The bytes up to where the reader stands, or a little further where letters have several. */
QByteArray readSoFar(const QXmlStreamReader &xml, const QByteArray &bytes)
{
    int line = 0;
    int at = 0;
    while (++line < xml.lineNumber() && at >= 0)
        at = bytes.indexOf('\n', at) + 1;
    return bytes.left(at + static_cast<int>(xml.columnNumber()));
}

// The reader's own words are English alone: they tell the kind, and are not shown.
Fault faultOf(const QXmlStreamReader &xml, const QByteArray &bytes)
{
    const QString words = xml.errorString();
    const auto says = [&](const char *part) { return words.contains(QLatin1String(part)); };
    if (isInComment(readSoFar(xml, bytes)) && !says("Premature"))
        return {QT_TRANSLATE_NOOP("vectorkit", "two hyphens stand inside of a comment"), kEdit};
    if (xml.error() == QXmlStreamReader::PrematureEndOfDocumentError)
        return {QT_TRANSLATE_NOOP("vectorkit", "it ends before its drawing does"),
                QT_TRANSLATE_NOOP("vectorkit", "It was cut off: copy it or save it again.")};
    if (says("tag mismatch"))
        return {QT_TRANSLATE_NOOP("vectorkit", "an element ends that did not begin there"),
                kSaveAgain};
    if (says("redefined"))
        return {QT_TRANSLATE_NOOP("vectorkit", "an attribute is given twice"), kSaveAgain};
    if (says("Entity") || says("entity"))
        return {QT_TRANSLATE_NOOP("vectorkit",
                                  "an entity (&name;) is not declared, or refers to itself or to "
                                  "too much"),
                kSaveAgain};
    if (says("encod"))
        return {QT_TRANSLATE_NOOP("vectorkit", "letters are not in the encoding that it names"),
                QT_TRANSLATE_NOOP("vectorkit", "Save it as UTF-8.")};
    return {QT_TRANSLATE_NOOP("vectorkit", "what stands there does not belong there"), kSaveAgain};
}

} // namespace

ReadFailure svgFaultOf(const QXmlStreamReader &xml, const QByteArray &bytes, ReadFailure::Kind kind)
{
    const Fault fault = faultOf(xml, bytes);
    return {kind,
            QCoreApplication::translate("vectorkit",
                                        "The file is not well-formed at line %1, column %2: %3.")
                .arg(xml.lineNumber())
                .arg(xml.columnNumber())
                .arg(QCoreApplication::translate("vectorkit", fault.what)),
            QCoreApplication::translate("vectorkit", fault.advice)};
}

} // namespace vectorkit
