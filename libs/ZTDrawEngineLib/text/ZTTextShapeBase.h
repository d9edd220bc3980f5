#pragma once

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <memory>

class ZTVariantText;

/**
 * A shape that shows a text: one that the user typed, or a variant text whose content changes from
 * one marked part to the next.
 *
 * Holds both and the switch between them. Neither the switch nor the fixed text redraws anything:
 * the item decides what is shown and calls `setText`. Concrete texts supply `setText` and
 * `paint()`.
 *
 * Copying: copy construction makes an independent shape, with a copy of the variant text while it
 * is switched on and a default one otherwise; its registry id is not copied. Assignment shares:
 * after `a = b` both have one variant text, which lives as long as one of them refers to it, as
 * they have one record.
 *
 * A destroyed shape leaves the lists of `ZTVariantTextManager`; the registry's entries stay.
 */
class ZTDRAWENGINELIB_EXPORT ZTTextShapeBase : public ZTShapeBase
{
public:
    ZTTextShapeBase();
    ZTTextShapeBase(const ZTTextShapeBase &other);
    ZTTextShapeBase &operator=(const ZTTextShapeBase &other);
    ~ZTTextShapeBase() override;

    /** The text now shown, wherever it came from. */
    QString text() const override;

    /** Does nothing here: a concrete text shows the text and rebuilds itself. */
    void setText(const QString &text) override;

    /**
     * Reads what `save` wrote and marks the shape. Nothing is shown: the next `paint()` does.
     * Returns true whatever it read: the stream's status is the caller's to test.
     *
     * The shape has a variant text of its own afterwards, shared with nobody.
     */
    bool load(QDataStream &stream) override;

    /**
     * Writes the base record, then: variant text switched on (bool), text shown, fixed text
     * (QString), registry id (qint32), variant text, which is written switched on or off.
     */
    void save(QDataStream &stream) const override;

    /**
     * The shape's own variant text, or null while it is switched off, although there is one.
     *
     * Owner: the shape; good until `cloneVariantText`, `load`, an assignment or its end.
     */
    ZTVariantText *getVarTxt() const;

    /**
     * Replaces the variant text by a copy of `*source`; the text shown stays.
     *
     * Null and the shape's own variant text change nothing. A shape that shared its variant text
     * by assignment has one of its own afterwards.
     */
    void cloneVariantText(ZTVariantText *source);

    bool isEnableVariantText() const; ///< whether the text follows the variant text

    /** Switches; does not touch the text shown. */
    void setEnableVariantText(bool enable);

    /** What the user typed, shown or not. */
    const QString &getFixedText() const;

    /** Stores; does not touch the text shown. */
    void setFixedText(const QString &text);

    /**
     * Updates the variant text, which moves on what counts in it, and shows its text through
     * `setText`. Does nothing while variant text is switched off. The library never calls it: the
     * host decides when a new value is due.
     */
    virtual void fromVariantTextUpdateText();

protected:
    QString m_text; ///< the text now shown, for a concrete `setText` to replace

private:
    const std::shared_ptr<ZTVariantText> &variantText() const;

    qint32 m_variantTextId = -1; ///< kept and streamed for hosts; nothing here reads it
    mutable std::shared_ptr<ZTVariantText> m_varTxt; ///< null in a copy until it is needed
    bool m_enableVariantText = false;
    QString m_fixedText;
};
