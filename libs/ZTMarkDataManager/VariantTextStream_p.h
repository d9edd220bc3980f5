#pragma once

#include <ZTMarkDataManager/ZTVariantTextSegment.h>

#include <QtCore/QVector>

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

/** What a variant text puts on a stream. */
struct VariantTextRecord
{
    QString text;
    QVector<ZTVariantTextSegment> segments;
};

void writeVariantText(QDataStream &stream, const VariantTextRecord &record);

/**
 * Reads what `writeVariantText` wrote, to its end also when the content is damaged or of a later
 * version. False, and a stream status other than Ok, when there is no record.
 */
bool readVariantText(QDataStream &stream, VariantTextRecord *record);
