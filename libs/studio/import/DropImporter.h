#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointF>
#include <QtCore/QStringList>

QT_BEGIN_NAMESPACE
class QDropEvent;
class QGraphicsView;
QT_END_NAMESPACE

namespace studio {

/** Takes files that are dropped on a view, from a file manager for example. */
class DropImporter : public QObject
{
    Q_OBJECT

public:
    /** `view` is borrowed and outlives this. */
    explicit DropImporter(QGraphicsView &view, QObject *parent = nullptr);

Q_SIGNALS:
    /** Local files were dropped at a place of the scene. */
    void filesDropped(const QStringList &paths, const QPointF &scenePx);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool offer(QDropEvent *event);
    bool take(QDropEvent *event);

    QGraphicsView &m_view;
};

} // namespace studio
