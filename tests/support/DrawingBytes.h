#pragma once

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>

namespace testsupport {

/** A document as a drawing saved by program "1.0" at a fixed moment, without preview. */
inline hostkit::DrawingFile captured(ZTGraphicsDocument &document)
{
    hostkit::DrawingCapture capture;
    capture.programVersion = QStringLiteral("1.0");
    capture.savedAt = QDateTime(QDate(2024, 2, 29), QTime(12, 34, 56, 789), Qt::UTC);
    capture.withPreview = false;
    hostkit::DrawingFile drawing;
    hostkit::Failure error;
    if (!captureDrawing(document, capture, &drawing, &error))
        qFatal("%s", qPrintable(error.reason));
    return drawing;
}

/** The bytes of its file. */
inline QByteArray savedBytes(ZTGraphicsDocument &document)
{
    return drawingToBytes(captured(document));
}

/** Reads a file's bytes and puts the drawing into a document. */
inline bool load(const QByteArray &bytes, ZTGraphicsDocument &document, hostkit::Failure *error)
{
    hostkit::DrawingFile drawing;
    return readDrawing(bytes, &drawing, error) &&
           applyDrawing(drawing, document, {}, nullptr, error);
}

} // namespace testsupport
