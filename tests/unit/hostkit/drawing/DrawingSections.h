#pragma once

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingFrame_p.h>

#include <QtCore/QtEndian>

namespace testsupport {

/** The sections of a file, which lends its bytes. */
inline hostkit::DrawingFrame frameOf(const QByteArray &file)
{
    hostkit::DrawingFrame frame;
    hostkit::Failure error;
    if (!splitFrame(file, &frame, &error))
        qFatal("%s", qPrintable(error.reason));
    return frame;
}

/** The content of one section of a file; empty without it. */
inline QByteArray sectionOf(const QByteArray &file, const QByteArray &tag)
{
    for (const hostkit::DrawingSection &section : frameOf(file).sections) {
        if (section.tag == tag)
            return {section.bytes.constData(), section.bytes.size()};
    }
    return {};
}

/** A file with other content in one section, every checksum right. */
inline QByteArray withSection(const QByteArray &file, const QByteArray &tag,
                              const QByteArray &content)
{
    hostkit::DrawingFrame frame = frameOf(file);
    for (hostkit::DrawingSection &section : frame.sections) {
        if (section.tag == tag)
            section.bytes = content;
    }
    return joinFrame(frame);
}

/** What reading says; nothing is expected to be read. */
inline hostkit::Failure refusalOf(const QByteArray &bytes)
{
    hostkit::DrawingFile drawing;
    drawing.meta.programVersion = QStringLiteral("untouched");
    hostkit::Failure error;
    if (readDrawing(bytes, &drawing, &error))
        return {};
    if (drawing.meta.programVersion != QLatin1String("untouched") || error.reason.isEmpty())
        qFatal("a refused drawing was touched, or nothing was said");
    return error;
}

template <class Number>
QByteArray bigEndian(Number number)
{
    QByteArray bytes(int(sizeof(Number)), '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

} // namespace testsupport
