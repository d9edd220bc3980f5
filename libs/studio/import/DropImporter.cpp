#include <studio/import/DropImporter.h>

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDragEnterEvent>
#include <QtWidgets/QGraphicsView>

namespace studio {

namespace {

QStringList localFiles(const QMimeData *data)
{
    QStringList paths;
    const QList<QUrl> urls = data != nullptr ? data->urls() : QList<QUrl>();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    return paths;
}

} // namespace

DropImporter::DropImporter(QGraphicsView &target, QObject *parent) : QObject(parent), m_view(target)
{
    m_view.viewport()->setAcceptDrops(true);
    m_view.viewport()->installEventFilter(this);
}

bool DropImporter::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        return offer(static_cast<QDropEvent *>(event));
    case QEvent::Drop:
        return take(static_cast<QDropEvent *>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool DropImporter::offer(QDropEvent *event)
{
    if (localFiles(event->mimeData()).isEmpty())
        return false;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    return true;
}

bool DropImporter::take(QDropEvent *event)
{
    const QStringList paths = localFiles(event->mimeData());
    if (paths.isEmpty())
        return false;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT filesDropped(paths, m_view.mapToScene(event->pos()));
    return true;
}

} // namespace studio
