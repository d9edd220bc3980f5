#pragma once

#include <vectorkit/svg/SvgClip_p.h>
#include <vectorkit/svg/SvgStyle_p.h>

#include <QtCore/QSharedPointer>

namespace vectorkit {

/** What an element stands in. */
struct SvgPlace
{
    QTransform toMm; ///< user units to millimetres
    SvgStyle style;
    QSizeF viewport;                    ///< user units; what percentages count from
    QSharedPointer<const SvgClip> clip; ///< null: all is seen
    SvgProperties geometry;             ///< of a shape: what style sheets say of its outline
    int depth = 0;
};

/** Text in one style from one anchor on. */
struct SvgTextRun
{
    QString text;
    QPointF at; ///< user units
    SvgStyle style;
    double widthFactor = 1.0;
    bool startsChunk = true; ///< stands where the file says, not behind the run before it
};

/** Walks the tree of a file and gathers what is drawn. */
class SvgWalker
{
public:
    SvgWalker(const SvgTree &source, const ReadOptions &readOptions, VectorDrawing *target);

    /** False when it was cancelled or has grown beyond its limits. */
    bool walk(ReadFailure *failure);

private:
    // The sheet and its size: SvgSize.cpp.
    void findSize();
    double pixelsPerInchOfProducer(QString *reason);
    QTransform viewTransform(int node, const QRectF &port, QSizeF *viewport) const;

    // Elements: SvgWalker.cpp.
    void visit(int node, const SvgPlace &outer);
    void visitChildren(int node, const SvgPlace &place);
    bool enter(int node, const SvgPlace &outer, SvgPlace *place);
    void enterLayer(int node);
    void visitUse(int node, const SvgPlace &place);
    void visitSwitch(int node, const SvgPlace &place);
    void visitNested(int node, const SvgPlace &place, const QSizeF &size);
    void visitOther(int node);
    QVector<VectorPath> outlineOf(int node, const SvgPlace &place);
    void addShape(int node, const SvgPlace &place);
    void addClipped(const VectorShape &shape, const SvgClip &clip);
    void addPaths(const VectorShape &shape);
    QColor colorOf(const SvgPaint &paint, double opacity);
    bool isHidden(int node, const SvgProperties &properties);
    void applyClip(const QString &value, int node, SvgPlace *place);
    bool buildClip(int node, const SvgPlace &place, int depth, SvgClip *clip);
    void addToClip(int node, const SvgPlace &outer, int depth, SvgClip *clip);
    QTransform transformOf(const SvgProperties &properties, int node);

    // Texts: SvgTexts.cpp.
    void addText(int node, const SvgPlace &place);
    void addFlowedText(int node, const SvgPlace &place);
    void collectRuns(int node, const SvgPlace &place, QVector<SvgTextRun> *runs, QPointF *pen);
    void placeRuns(int node, const SvgPlace &place, const QVector<SvgTextRun> &runs);
    void placeRun(int node, const SvgPlace &place, const SvgTextRun &run);

    // Small things.
    SvgProperties geometryOf(int node, const SvgProperties &properties) const;
    QString geometryText(int node, SvgName name, const SvgPlace &place) const;
    double length(int node, SvgName name, double whole, const SvgPlace &place, double none = 0.0);
    double lengthX(int node, SvgName name, const SvgPlace &place, double none = 0.0);
    double lengthY(int node, SvgName name, const SvgPlace &place, double none = 0.0);
    void note(VectorNote::Kind kind, const QString &what, int node);
    VectorLayer &layer();

    const SvgTree &m_tree;
    const ReadOptions &m_options;
    VectorDrawing *m_drawing;
    SvgSheets m_sheets;
    SvgPlace m_root;
    double m_pixelsPerInch = 96.0;
    int m_layerIndex = -1;     ///< of the one that shapes go to; -1: outside of layers
    int m_freeLayerIndex = -1; ///< layer without a name that was made last
    qint64 m_visited = 0;
    qint64 m_pieces = 0;
    QVector<int> m_usesOpen; ///< what `use` elements show, for those that show themselves
    bool m_isCancelled = false;
    bool m_isTooLarge = false;
};

} // namespace vectorkit
