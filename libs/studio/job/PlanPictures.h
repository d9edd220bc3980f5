#pragma once

#include <studio/job/JobRun.h>

#include <QtGui/QImage>
#include <QtGui/QTransform>

#include <atomic>
#include <map>
#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace studio {

/** What the marks of a plan are coloured by. */
enum class PlanColors : quint8 { ByPen, ByOrder, BySpeed };

/** How a plan is shown. */
struct PlanLook
{
    PlanColors colors = PlanColors::ByPen;
    bool hasJumps = true;
    bool hasArrows = false;
    bool hasNumbers = false;
    bool hasStarts = false;

    bool hasSigns() const { return hasJumps || hasArrows || hasNumbers || hasStarts; }
};

bool operator==(const PlanLook &a, const PlanLook &b);
inline bool operator!=(const PlanLook &a, const PlanLook &b) { return !(a == b); }

/** A plan cut into short stretches with their boxes: what is out of sight costs next to nothing. */
class PlanStretches
{
public:
    explicit PlanStretches(const jobkit::JobPlan &plan);

    struct Stretch
    {
        int first = 0; ///< point of the piece
        int last = 0;  ///< likewise; never before `first`
        QRectF boxMm;  ///< may be flat
    };

    /** Those of a piece, one after the other: the last point of one is the first of the next. */
    const Stretch *begin(int piece) const { return m_all.data() + m_firstOf[size_t(piece)]; }
    const Stretch *end(int piece) const { return m_all.data() + m_firstOf[size_t(piece) + 1]; }

    int pieces() const { return int(m_firstOf.size()) - 1; }

    /** Whether any of a piece lies in a box. */
    bool touches(int piece, const QRectF &boxMm) const;

private:
    std::vector<Stretch> m_all;
    std::vector<size_t> m_firstOf; ///< by piece; one more at the end
};

/** What pictures of a plan show, and from where. A value that any thread may draw. */
struct PlanScene
{
    std::shared_ptr<const Job> job;                 ///< may be null: nothing to show
    std::shared_ptr<const PlanStretches> stretches; ///< of that job
    PlanLook look;
    QTransform view; ///< from mm to pixels
    QSize size;      ///< of the pictures, in pixels
    double pixelRatio = 1.0;
};

bool operator==(const PlanScene &a, const PlanScene &b);
inline bool operator!=(const PlanScene &a, const PlanScene &b) { return !(a == b); }

/**
 * The pictures that a plan's view is put together from: all marks pale, those that are done
 * bright, and the signs.
 *
 * What is done is kept as a picture, so that a moment later costs only what was marked since; a
 * moment earlier begins at the nearest of a few pictures kept on the way.
 */
class PlanPictures
{
public:
    /** Limit: pieces in sight that get signs; more would be a grey mass. */
    static constexpr int kSignsAtMost = 20000;

    PlanPictures() = default;
    explicit PlanPictures(const PlanScene &scene);

    const PlanScene &scene() const { return m_scene; }
    bool isNull() const { return m_pale.isNull(); }

    /** Draws what is to come and the signs; any thread. Given up, the pictures must not be used. */
    void draw(const std::atomic<bool> &isGivenUp);

    /** Draws the signs alone anew, with another look. The colours are to stay. */
    void drawSignsLike(const PlanLook &look);

    /**
     * Shows as done what the head has marked when it comes to the plan's `vertex`, not included.
     * Draws at most `most` vertices now; false if that was not enough.
     */
    bool advanceTo(qint64 vertex, qint64 most);

    /** Paints the pictures as seen through `view`, from mm to pixels, which may be another one. */
    void paint(QPainter &painter, const QTransform &view) const;

    /** Pieces in sight, where they are too many for signs; 0: none is left out. */
    int signsLeftOut() const { return m_leftOut; }

    /** The colour of a piece. */
    QColor colorOf(int piece) const;

private:
    QImage blank() const;
    QRectF sightMm() const;
    void beginPainting(QPainter &painter, QImage &image) const;
    void drawPale(const std::atomic<bool> &isGivenUp);
    void drawSigns();
    void drawSignsOf(QPainter &painter, int piece) const;
    void drawDone(qint64 from, qint64 to);
    void drawRange(QPainter &painter, int piece, int first, int last) const;
    void drawRun(QPainter &painter, int piece, int first, int last) const;
    int pieceOfVertex(qint64 vertex) const;

    PlanScene m_scene;
    QRectF m_sightMm;
    bool m_isSmooth = true;
    std::map<int, QColor> m_penColors;
    std::map<int, double> m_penSpeeds; ///< shares of the fastest

    QImage m_pale;
    QImage m_signs; ///< the same at any moment
    QImage m_done;
    qint64 m_doneVertices = 0;            ///< that `m_done` shows
    std::map<qint64, QImage> m_waypoints; ///< pictures of less, by their vertices
    int m_leftOut = 0;
};

} // namespace studio
