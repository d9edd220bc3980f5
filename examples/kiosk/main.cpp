// A kiosk: it shows a drawing, and its one button marks the next part. kiosk DRAWING [PARTS] marks
// so many parts at once, without the window.
//
// Each part has its own serial number, whatever happens: the drawing with the next number is on the
// disk before the laser begins. A power cut can cost a number; it cannot mark one twice.

#include <codekit/shape/CodeItem.h>
#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/items/LastPart.h>
#include <hostkit/items/PartTexts.h>
#include <hostkit/items/ShapeItems.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/text/FontPlaces.h>
#include <jobkit/items/HatchedItems.h>
#include <jobkit/marks/NumberJournal.h>
#include <jobkit/marks/NumberLock.h>

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

/** Where a host would drive its laser. */
void burn(const hostkit::DrawingMarks &marks, const QStringList &texts)
{
    QTextStream(stdout) << "marked " << marks.graph.objects.size()
                        << " objects: " << texts.join(QStringLiteral(", ")) << '\n';
}

class Kiosk
{
public:
    explicit Kiosk(const QString &drawingPath) : m_path(drawingPath), m_lock(drawingPath) {}

    ZTGraphicsDocument &document() { return m_document; }

    bool open(hostkit::Failure *failure)
    {
        // For as long as the kiosk runs, no other program takes numbers of the drawing.
        if (m_lock.take() == jobkit::NumberLock::Result::Busy)
            return refuse(QStringLiteral("another program takes its numbers"), failure);
        if (jobkit::readJournal(m_path, failure))
            return refuse(QStringLiteral("a job took numbers that the drawing does not know of: "
                                         "see to its file .numbers"),
                          failure);
        if (failure->kind != hostkit::Failure::Kind::None) // a journal that nobody can read
            return false;
        hostkit::DrawingFile drawing;
        hostkit::DrawingReport report;
        if (!hostkit::readDrawing(m_path, &drawing, failure) ||
            !hostkit::applyDrawing(drawing, m_document, {}, &report, failure))
            return false;
        if (!report.missingFonts.isEmpty()) // its texts would be marked otherwise, or not at all
            return refuse(QStringLiteral("these fonts are missing: ") +
                              report.missingFonts.join(QStringLiteral(", ")),
                          failure);
        if (!report.unknownKinds.isEmpty()) // kept, and not marked
            return refuse(QStringLiteral("these kinds of shapes cannot be marked here: ") +
                              QStringList(report.unknownKinds.keys()).join(QStringLiteral(", ")),
                          failure);
        return true;
    }

    /** Marks what the drawing shows, once the next part is on the disk. */
    bool markNext(hostkit::Failure *failure)
    {
        const QVector<ZTAbstractGraphicsItem *> items = hostkit::shapeItemsOf(m_document);
        const QStringList unreadable = hostkit::NextPart::again(items).errors; // with today's date
        if (!unreadable.isEmpty()) // a list that cannot be read
            return refuse(unreadable.join(QStringLiteral(", ")), failure);
        QStringList texts;
        bool isLast = false;
        for (ZTAbstractGraphicsItem *item : items) {
            if (hostkit::isUsedUp(*item))
                return refuse(QStringLiteral("the serial numbers are used up"), failure);
            if (const ZTVariantText *text = hostkit::variantTextOf(*item))
                texts << text->getText();
            isLast = isLast || hostkit::isAtLastPart(*item);
        }
        const hostkit::DrawingMarks marks = hostkit::drawingMarks(m_document);
        if (!marks.findings.notReady.isEmpty()) // a code that cannot hold its content
            return refuse(hostkit::describeNotReady(marks.findings), failure);
        if (isLast) {
            for (ZTAbstractGraphicsItem *item : items)
                hostkit::setLastPartMarked(*item, hostkit::variantTextOf(*item) != nullptr);
        } else {
            const QStringList errors = hostkit::NextPart::make(items).errors;
            if (!errors.isEmpty())
                return refuse(errors.join(QStringLiteral(", ")), failure);
        }
        if (!hostkit::saveDrawing(m_document, {}, m_path, failure))
            return false; // nothing is marked with a number that may come again
        burn(marks, texts);
        return true;
    }

private:
    static bool refuse(const QString &why, hostkit::Failure *failure)
    {
        return hostkit::fail(failure, hostkit::Failure::Kind::NotPossible, why);
    }

    QString m_path;
    jobkit::NumberLock m_lock;
    ZTGraphicsDocument m_document;
};

int showWindow(Kiosk &kiosk)
{
    QWidget window;
    QVBoxLayout layout(&window);
    QPushButton button(QStringLiteral("Mark next part"));
    kiosk.document().setAttribute(Qt::WA_TransparentForMouseEvents); // to look at, not to edit
    kiosk.document().setFocusPolicy(Qt::NoFocus);
    layout.addWidget(&kiosk.document());
    layout.addWidget(&button);
    QObject::connect(&button, &QPushButton::clicked, [&] {
        hostkit::Failure failure;
        if (!kiosk.markNext(&failure))
            QMessageBox::warning(&window, QStringLiteral("Not marked"), failure.reason);
    });
    window.resize(900, 700);
    window.show();
    const int result = QApplication::exec();
    kiosk.document().setParent(nullptr); // the kiosk owns it
    return result;
}

int markParts(Kiosk &kiosk, int parts)
{
    for (int part = 0; part < parts; ++part) {
        hostkit::Failure failure;
        if (kiosk.markNext(&failure))
            continue;
        QTextStream(stderr) << failure.reason << '\n';
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    jobkit::registerHatchedFactories(); // all hatches of a shape, not the first alone
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    hostkit::addFontFolders();
    hostkit::Failure failure;
    Kiosk kiosk(arguments.value(1));
    if (!kiosk.open(&failure)) {
        QTextStream(stderr) << arguments.value(1) << ": " << failure.reason << '\n';
        return 1;
    }
    return arguments.size() > 2 ? markParts(kiosk, arguments[2].toInt()) : showWindow(kiosk);
}
