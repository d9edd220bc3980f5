#pragma once

#include <codekit/shape/CodeSettings.h>

#include <hostkit/items/MarkReadiness.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <optional>

namespace codekit {

/**
 * A code as a shape: its content is the shape's text, fixed or variant, and everything else are its
 * settings.
 *
 * The code stands with the top left of its first module at the shape's origin, its text for people
 * and the frame of an inverse code around it. Outlines of areas are hatched as the fill parameters
 * say, by an item's further hatches too; single lines, such as those of a stroke font, never are.
 *
 * A content that cannot be encoded leaves the last code that could be, and `notReadyReason` tells:
 * what is shown and marked is then not what was asked for.
 *
 * Frame: the shape's rectangle is the code without its quiet zone, in millimetres.
 * Order, Copying: as `ZTTextShapeBase`; a shape cannot be assigned to.
 */
class CodeShape : public ZTTextShapeBase, public hostkit::MarkReadiness
{
public:
    /** A code of a kind with a content that it can hold; a bar code is of `ShapeType::BarCode`. */
    explicit CodeShape(CodeKind kind);
    CodeShape(const CodeShape &other) = default;
    CodeShape &operator=(const CodeShape &) = delete;

    /** All but the content. Owner: the shape; good until they are set anew. */
    const CodeSettings &settings() const { return m_settings; }

    /** Makes the code anew, of settings and content; its shape type follows its kind. */
    void setCode(const CodeSettings &settings, const QString &content);

    /** The content that the code is to have; makes the code anew. */
    void setText(const QString &text) override;

    void setFillParam(const ZTFillParam &param) override;

    void paint() override;

    /** What is shown: the code of the last content that could be encoded; no columns for none. */
    const CodeSymbol &symbol() const { return m_drawn.symbol; }

    /** The form that it is shown in: with the module that a wanted width gives. */
    const CodeForm &form() const { return m_drawn.form; }

    /** The code with its quiet zone. Frame: millimetres, before the transform. */
    QRectF fieldMm() const { return m_drawn.fieldMm; }

    /** In the present language. */
    QString notReadyReason() const override;

    /**
     * Reads what `save` wrote. Settings that it cannot read, such as those of a later version, are
     * kept and saved again; until others are set the shape shows nothing and says so.
     */
    bool load(QDataStream &stream) override;

    /** Writes the text's record, then the settings as bytes with their length (QByteArray). */
    void save(QDataStream &stream) const override;

private:
    /** A code as it is drawn. */
    struct Drawn
    {
        CodeSymbol symbol;
        CodeForm form;
        QRectF fieldMm;
        QPainterPath areas;   ///< closed outlines, flat
        QPainterPath strokes; ///< single lines
    };

    static bool draw(const CodeSettings &settings, const QString &content, Drawn *drawn,
                     QString *reason);
    void bringUpToDate();
    void drawLines();
    void keepBorderOfStrokes(const QPainterPath &strokesPx);
    QByteArray record() const;
    bool takeRecord(const QByteArray &record);

    CodeSettings m_settings;
    CodeSettings m_shownSettings; ///< of the code that is drawn
    QString m_shownContent;
    Drawn m_drawn;
    QString m_problem;
    std::optional<QByteArray> m_unknownRecord; ///< settings that this version cannot read
    bool m_isUpToDate = false; ///< `m_drawn` and `m_problem` belong to settings and text
};

/** The kind of shape that a kind of code is. */
ShapeType shapeTypeOf(CodeKind kind);

} // namespace codekit
