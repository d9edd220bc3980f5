#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QObject>

#include <functional>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QMouseEvent;
QT_END_NAMESPACE

namespace studio {

/**
 * A tool that takes mouse and keys on the canvas while it is at work. What it takes, nothing below
 * it gets: the functions that are told an event say whether it was theirs.
 */
class CanvasTool : public QObject
{
    Q_OBJECT

public:
    /** Where a place of the mouse comes to; scene pixels. */
    using Snap = std::function<QPointF(const QPointF &placePx, Qt::KeyboardModifiers keys)>;

    /** What places of the mouse go through; `done` is told when no more come. None at first. */
    void setSnap(const Snap &snap, const std::function<void()> &done);

Q_SIGNALS:
    /** What the tool does now or cannot do; empty when there is nothing to say. */
    void told(const QString &words);

    /** The tool has nothing more to do: Esc with nothing to give up, or its work is done. */
    void left();

protected:
    /** `drawing` is borrowed and outlives this. */
    CanvasTool(ZTGraphicsDocument &drawing, QObject *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;

    virtual bool isAtWork() const = 0;

    /** Whether a key means something to the tool now, though it may be a command's. */
    virtual bool isOurKey(const QKeyEvent &event) const = 0;
    virtual bool keyPress(const QKeyEvent &event) = 0;
    virtual bool press(const QMouseEvent &event) = 0;
    virtual bool doubleClick(const QMouseEvent &event) = 0;
    virtual bool move(const QMouseEvent &event) = 0;
    virtual bool release(const QMouseEvent &event) = 0;

    ZTGraphicsDocument &document() const { return m_document; }

    /** Where the mouse is on the scene, and where that comes to. */
    QPointF placeOf(const QMouseEvent &event) const;
    QPointF snapped(const QPointF &placePx, Qt::KeyboardModifiers keys) const;

    void endSnapping() const;

private:
    bool viewEvent(QEvent *event);
    bool viewportEvent(QEvent *event);

    ZTGraphicsDocument &m_document;
    Snap m_snap;
    std::function<void()> m_snapDone;
};

} // namespace studio
