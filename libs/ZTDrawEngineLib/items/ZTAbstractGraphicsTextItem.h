#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

class ZTTextShapeBase;
class ZTVariantText;

/**
 * An item that shows a text: the one the user typed, or a variant text whose content changes from
 * one marked part to the next. Switches between the two.
 *
 * Failure: over a shape that is no text, operations do nothing and answers are null, false or
 * empty.
 */
class ZTDRAWENGINELIB_EXPORT ZTAbstractGraphicsTextItem : public ZTAbstractGraphicsItem
{
    Q_OBJECT

public:
    ZTAbstractGraphicsTextItem();

    /** The variant text; null while it is switched off. Owner: the shape. */
    ZTVariantText *getVariantText() const;
    bool isEnableVariantText() const;

    /** Switches, and shows the variant text's current text, or the fixed text. */
    void setEnableVariantText(bool on);

    /** Shows the variant text's current text; does nothing while it is switched off. */
    void fromVariantTextSetText();

    /** Stores what the user typed; shows it unless variant text is switched on. */
    void setFixedText(const QString &text);
    QString getFixedText() const;

private:
    ZTTextShapeBase *textShapeBase() const;
};
