#include <ZTDrawEngineLib/document/ZTGraphicsDocument.h>

#include <ZTDrawEngineLib/document/ZTGraphicsView.h>
#include <ZTDrawEngineLib/items/ZTGraphicsScene.h>
#include <ZTDrawEngineLib/model/ZTItemModel.h>
#include <ZTDrawEngineLib/model/ZTObjectTreeWidget.h>
#include <ZTDrawEngineLib/model/ZTShapeManager.h>

#include <QtCore/QMetaObject>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QUndoStack>

#include <cstdlib>
#include <ctime>

namespace {

constexpr double kShownShare = 0.9;
constexpr double kNewShapeMm = 10.0;

/** A whole number of millimetres from -50 to 49. */
int randomOffset() { return std::rand() % 100 - 50; }

} // namespace

/** Layout and view of the document. */
struct ZTGraphicsDocument::Form
{
    QGridLayout *gridLayout = nullptr;
    ZTGraphicsView *graphicsView = nullptr;

    void setupUi(ZTGraphicsDocument &document)
    {
        if (document.objectName().isEmpty())
            document.setObjectName(QStringLiteral("ZTGraphicsDocument"));
        document.resize(544, 317);
        document.setFrameShape(QFrame::NoFrame);
        document.setFrameShadow(QFrame::Plain);
        document.setLineWidth(0);

        gridLayout = new QGridLayout(&document);
        gridLayout->setSpacing(6);
        gridLayout->setObjectName(QStringLiteral("gridLayout"));
        gridLayout->setContentsMargins(0, 0, 0, 0);

        graphicsView = new ZTGraphicsView(&document);
        graphicsView->setObjectName(QStringLiteral("graphicsView"));
        graphicsView->setFrameShape(QFrame::NoFrame);
        graphicsView->setLineWidth(0);
        gridLayout->addWidget(graphicsView, 1, 0, 1, 2);

        document.setWindowTitle(ZTGraphicsDocument::tr("ZTGraphicsDocument"));
        QMetaObject::connectSlotsByName(&document);
    }
};

ZTGraphicsDocument::ZTGraphicsDocument(QWidget *parent)
    : QFrame(parent), m_ui(std::make_unique<Form>())
{
    m_ui->setupUi(*this);
    std::srand(static_cast<unsigned>(std::clock()));
    m_undoStack = new QUndoStack(this);
    m_shapeManager = new ZTShapeManager;
    m_scene = m_shapeManager->scene();
    m_scene->setUndoStack(m_undoStack);
    m_ui->graphicsView->setScene(m_scene);
}

ZTGraphicsDocument::~ZTGraphicsDocument()
{
    delete m_undoStack;
    delete m_shapeManager;
}

ZTGraphicsView *ZTGraphicsDocument::view() const { return m_ui->graphicsView; }

ZTGraphicsScene *ZTGraphicsDocument::scene() const { return m_scene; }

ZTShapeManager *ZTGraphicsDocument::itemMag() const { return m_shapeManager; }

QUndoStack *ZTGraphicsDocument::undoStack() const { return m_undoStack; }

ZTObjectTreeWidget *ZTGraphicsDocument::objectTree() const { return m_objectTree; }

void ZTGraphicsDocument::setScene(ZTGraphicsScene *scene) { m_scene = scene; }

void ZTGraphicsDocument::setObjectTree(ZTObjectTreeWidget *tree)
{
    m_objectTree = tree;
    if (tree == nullptr)
        return;
    tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tree->setModel(m_shapeManager->itemModel());
    if (auto *model = qobject_cast<ZTItemModel *>(m_shapeManager->itemModel()))
        tree->setSelectionModel(model->itemSelectionModel());
}

void ZTGraphicsDocument::clear()
{
    m_undoStack->clear();
    m_shapeManager->clear();
}

void ZTGraphicsDocument::removeSelectItem() { m_shapeManager->removeSelect(); }

void ZTGraphicsDocument::slotCreateShape(const ShapeType &type)
{
    const int x = randomOffset();
    const int y = randomOffset();
    Q_EMIT m_shapeManager->sigAddedShape(
        m_shapeManager->addShape(type, QRectF(x, y, kNewShapeMm, kNewShapeMm)));
}

void ZTGraphicsDocument::slotCreateShape(int type)
{
    slotCreateShape(static_cast<ShapeType>(type));
}

void ZTGraphicsDocument::slotViewZoomIn() { m_ui->graphicsView->zoomIn(); }

void ZTGraphicsDocument::slotViewZoomOut() { m_ui->graphicsView->zoomOut(); }

void ZTGraphicsDocument::slotViewResize()
{
    m_ui->graphicsView->centerOn(0.0, 0.0);
    m_ui->graphicsView->resetSize(1.0);
}

void ZTGraphicsDocument::slotViewDisplayItem()
{
    const QRectF shown = m_scene != nullptr ? m_scene->getSelectionItemRect() : QRectF();
    if (shown.isEmpty())
        return;
    ZTGraphicsView &view = *m_ui->graphicsView;
    view.centerOn(shown.center());
    // Kept: only the larger side is fitted, whatever the proportions of the view are.
    const double fit = shown.width() > shown.height() ? view.width() / shown.width()
                                                      : view.height() / shown.height();
    view.resetSize(fit * kShownShare);
}

// The document has no key of its own: keyboard editing lives in the scene and with the host.
void ZTGraphicsDocument::keyPressEvent(QKeyEvent *event) { QFrame::keyPressEvent(event); }

void ZTGraphicsDocument::keyReleaseEvent(QKeyEvent *event) { QFrame::keyReleaseEvent(event); }
