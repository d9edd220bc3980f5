#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

namespace vectorkit::dxf {

/** A line of text without its codes for signs and under- or overlining. */
QString plainLine(const QString &coded);

/** A line of a paragraph text. */
struct ParagraphLine
{
    QString text; ///< without format codes; stacked fractions as 1/2
    QString font; ///< that of its first letter; empty: the font of the text's style
};

/** A paragraph text, taken apart. */
struct Paragraph
{
    QVector<ParagraphLine> lines;
    bool hasMixedLines = false;  ///< a line has letters in other fonts than its first one
    bool hasStyledFonts = false; ///< letters are bold or italic
};

Paragraph paragraphOf(const QString &coded);

} // namespace vectorkit::dxf
