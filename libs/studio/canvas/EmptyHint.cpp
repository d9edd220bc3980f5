#include <studio/canvas/EmptyHint.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QEvent>

namespace studio {

namespace {

constexpr int kRoom = 12;
const QColor kInk(0x50, 0x58, 0x60);

} // namespace

EmptyHint::EmptyHint(ZTGraphicsDocument &document) : QLabel(&document), m_document(document)
{
    setObjectName(QStringLiteral("emptyHint"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAlignment(Qt::AlignCenter);
    setMargin(kRoom);
    // On paper, which is white in every theme.
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, kInk);
    colors.setColor(QPalette::Window, Qt::white);
    setPalette(colors);
    setAutoFillBackground(true);
    const QAbstractItemModel *rows = m_document.itemMag()->itemModel();
    connect(rows, &QAbstractItemModel::rowsInserted, this, &EmptyHint::follow);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &EmptyHint::follow);
    connect(rows, &QAbstractItemModel::modelReset, this, &EmptyHint::follow);
    m_document.installEventFilter(this);
    retranslate();
}

void EmptyHint::retranslate()
{
    setText(tr("Choose a tool on the left and drag to draw\n"
               "Drop drawings here, or paste them\n"
               "Ctrl and the wheel zoom, Space and the mouse move the view"));
    follow();
}

void EmptyHint::follow()
{
    const bool isEmpty = m_document.itemMag()->itemModel()->rowCount() == 0;
    setVisible(isEmpty);
    if (!isEmpty)
        return;
    adjustSize();
    // Below the origin, which stays in sight.
    move((m_document.width() - width()) / 2, m_document.height() / 2 + height() / 2);
    raise();
}

bool EmptyHint::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        follow();
    return QLabel::eventFilter(watched, event);
}

void EmptyHint::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

} // namespace studio
