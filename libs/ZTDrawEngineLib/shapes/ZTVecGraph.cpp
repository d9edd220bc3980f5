#include <ZTDrawEngineLib/shapes/ZTVecGraph.h>

#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <QtCore/QDataStream>
#include <QtCore/QFileInfo>
#include <QtGui/QFont>

namespace {

/** The word in the default font, drawn once: an empty graphic stands behind every copy of one. */
QPainterPath nullWord()
{
    thread_local QFont drawnFont;
    thread_local int generation = -1; // of no font
    thread_local QPainterPath word;
    const QFont font;
    if (generation != ztoutline::fontGeneration() || font != drawnFont) {
        word = QPainterPath();
        ztoutline::addText(word, {10.0, 10.0}, font, QStringLiteral("null"));
        drawnFont = font;
        generation = ztoutline::fontGeneration();
    }
    return word;
}

/** Whether reading the file could wait for ever: a pipe, a terminal, a device. */
bool isNoPlainFile(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() && !file.isFile() && !file.isDir(); // a folder is refused at once
}

} // namespace

ZTVecGraph::ZTVecGraph()
{
    setShapeType(ShapeType::TDOT);
    setUpdate(1);
    setRect(QRectF(0, 0, 100, 100));
}

void ZTVecGraph::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    const QPainterPath drawing = m_imageKind == 1 ? m_reader.getPath() : QPainterPath();
    getPath() = drawing.isEmpty() ? nullWord() : drawing;
    path2Lines(true);
    fill();
}

bool ZTVecGraph::load(QDataStream &stream)
{
    QString path;
    stream >> path;
    if (isNoPlainFile(path)) { // nobody chose it: a drawing must not read the machine's devices
        m_imagePath = path;
        m_imageKind = 1;
        setUpdate(1);
    } else {
        setImagePath(path);
    }
    return true;
}

void ZTVecGraph::save(QDataStream &stream) const { stream << m_imagePath; }

void ZTVecGraph::setImagePath(const QString &path)
{
    m_imagePath = path;
    // Kept: the whole name is compared, not its extension, so that files of any extension load.
    if (path.compare(QLatin1String(".plt"), Qt::CaseInsensitive) == 0)
        return;
    m_imageKind = 1;
    m_reader.load(m_imagePath);
    setUpdate(1);
}

const QString &ZTVecGraph::getImagePath() const { return m_imagePath; }

bool ZTVecGraph::readImage(QIODevice &device, const QString &path)
{
    m_imagePath = path;
    m_imageKind = 1;
    setUpdate(1);
    return m_reader.load(device);
}

const QPainterPath &ZTVecGraph::getDrawing() const { return m_reader.getPath(); }

void ZTVecGraph::setDrawing(const QPainterPath &drawingMm, const QString &path)
{
    m_imagePath = path;
    m_imageKind = 1;
    m_reader.setPath(drawingMm);
    setUpdate(1);
}
