#include <vectorkit/VectorReader.h>

#include <vectorkit/svg/SvgWalker_p.h>

#include <QtCore/QCoreApplication>

namespace vectorkit {

bool readSvg(const QByteArray &bytes, const ReadOptions &options, VectorDrawing *drawing,
             ReadFailure *failure)
{
    ReadFailure unheard;
    if (!failure)
        failure = &unheard;
    if (bytes.size() > options.mostBytes) {
        *failure = {
            ReadFailure::Kind::TooLarge,
            QCoreApplication::translate("vectorkit", "The drawing is larger than can be read."),
            QCoreApplication::translate("vectorkit",
                                        "Take it apart with the program that wrote it.")};
        return false;
    }
    SvgTree tree;
    if (!readSvgTree(bytes, options, &tree, failure))
        return false;
    VectorDrawing read;
    read.format = VectorFormat::Svg;
    read.formatVersion = tree.attribute(0, SvgName::Version);
    SvgWalker walker(tree, options, &read);
    if (!walker.walk(failure))
        return false;
    if (read.isEmpty()) {
        *failure = {
            ReadFailure::Kind::Empty,
            QCoreApplication::translate("vectorkit", "The drawing holds no shapes and no texts."),
            QString()};
        QStringList skipped;
        for (const VectorNote &note : read.notes)
            skipped << QStringLiteral("%1 (%2)").arg(note.what).arg(note.count);
        if (!skipped.isEmpty())
            failure->advice = QCoreApplication::translate("vectorkit", "Left out: %1.")
                                  .arg(skipped.join(QStringLiteral(", ")));
        return false;
    }
    *drawing = read;
    return true;
}

} // namespace vectorkit
