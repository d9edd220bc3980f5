#pragma once

#include <codekit/shape/CodeShape.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace codekit {

class CodeOverlay;

/**
 * The item of a `CodeShape`. Its text is the code's content; its areas are hatched by all hatches
 * of the item where the process has a `hostkit::hatchDrawer`.
 *
 * Over the code it shows the quiet zone, if the settings ask for that, and a red cross while the
 * code is not the one that was asked for; neither is ever marked, and both are in nobody's way.
 */
class CodeItem : public ZTAbstractGraphicsTextItem
{
    Q_OBJECT

public:
    explicit CodeItem(CodeKind kind = CodeKind::DataMatrix);
    ~CodeItem() override;

    void copy(ZTAbstractGraphicsItem *source) override;
    bool load(QDataStream &stream) override;

    /** As the base does, but each hatch in its own pen, as pale as the view asks. */
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

    QString text() const override;
    void setText(const QString &text) override;

    /** All but the content, which is `text`. Owner: the shape; good until they are set anew. */
    const CodeSettings &settings() const { return m_code->settings(); }

    /** Makes the code anew; the kind of the item follows the kind of the code. */
    void setSettings(const CodeSettings &settings);

    /** Settings and content at once, so that neither has to go with what the other was before. */
    void setCode(const CodeSettings &settings, const QString &content);

    /** The shape. Owner: the item; `copy` replaces it. */
    CodeShape &code() const { return *m_code; }

    /** Width of a module as it is marked, the shape's transform included; 0 without a code. */
    double moduleMm() const;

    void setTransformParam(const QTransform &transform) override;
    void scale(double x, double y) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    void followShape();

    CodeShape *m_code;      ///< the object that the base owns
    CodeOverlay *m_overlay; ///< child
};

/** The code behind an item, or null for an item of another kind. */
CodeItem *codeItem(ZTAbstractGraphicsItem *item);
const CodeItem *codeItem(const ZTAbstractGraphicsItem *item);

/**
 * Registers the factories of "QRCode" and "BarCode", once; further calls change nothing. Without
 * them a drawing keeps its codes, unseen and unmarked.
 *
 * Order: before the first document. A factory that a host registered for a kind before stays.
 */
void registerCodeFactories();

} // namespace codekit
