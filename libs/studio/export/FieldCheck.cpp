#include <studio/export/FieldCheck.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/marks/MarkFindings.h>

#include <QtCore/QCoreApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace studio {

namespace {

constexpr int kNamedAtMost = 8; ///< the rest is behind "Show Details"

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::FieldCheck)
};

QStringList namesOf(const ShapeItems &shapes)
{
    QStringList names;
    names.reserve(shapes.size());
    for (const ShapeItem *item : shapes)
        names << hostkit::shapeName(*item);
    return names;
}

} // namespace

ShapeItems shapesOutsideField(const ShapeItems &shapes, const ZTGraphicsDocument &document)
{
    const QRectF fieldMm(document.view()->getWorkArea());
    const QTransform toMm = ZTCoord::getInstance()->getMm2pixTransform().inverted();
    ShapeItems outside;
    for (ShapeItem *item : shapes) {
        if (hostkit::isMarked(*item) &&
            !hostkit::isWithinField(toMm.mapRect(sceneBox(*item)), fieldMm))
            outside.append(item);
    }
    return outside;
}

void askAboutField(const ShapeItems &shapes, const ZTGraphicsDocument &document, QWidget &window,
                   const std::function<void()> &next)
{
    const ShapeItems outside = shapesOutsideField(shapes, document);
    if (outside.isEmpty()) {
        next();
        return;
    }
    const QStringList names = namesOf(outside);
    auto *box =
        new QMessageBox(QMessageBox::Warning, QString(), Texts::tr("Shapes lie outside the field."),
                        QMessageBox::NoButton, &window);
    box->setObjectName(QStringLiteral("fieldQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    const QString listed = QStringList(names.mid(0, kNamedAtMost)).join(QLatin1Char('\n'));
    box->setInformativeText(Texts::tr("The machine may not reach what lies there.") +
                            QLatin1Char('\n') + listed +
                            (names.size() > kNamedAtMost ? QStringLiteral("\n...") : QString()));
    if (names.size() > kNamedAtMost)
        box->setDetailedText(names.join(QLatin1Char('\n')));
    const QPushButton *exporting =
        box->addButton(Texts::tr("&Export all the same"), QMessageBox::AcceptRole);
    box->setDefaultButton(box->addButton(QMessageBox::Cancel));
    QObject::connect(exporting, &QPushButton::clicked, &window, next);
    box->open();
}

} // namespace studio
