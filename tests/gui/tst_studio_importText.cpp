#include "TextWindow.h"

#include <studio/import/ImportDialog.h>
#include <studio/import/ImportPicture.h>

#include <QtCore/QSettings>

namespace {

/** A sheet of 100 mm with what is drawn on it. */
QByteArray sheet(const QByteArray &content)
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100mm\" height=\"100mm\" "
           "viewBox=\"0 0 100 100\">" +
           content + "</svg>";
}

/** Box of what is dark, the frame of the picture apart. */
QRect inkOf(const QImage &image)
{
    QRect ink;
    for (int y = 2; y < image.height() - 2; ++y) {
        for (int x = 2; x < image.width() - 2; ++x) {
            if (image.pixelColor(x, y).lightness() < 128)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

} // namespace

/** Foreign drawings that hold texts, as the import shows them and takes them in. */
class tst_studio_importText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QSettings().remove(QStringLiteral("import"));
        studio = std::make_unique<TextWindow>();
    }
    void cleanup()
    {
        studio.reset();
        QSettings().remove(QStringLiteral("import"));
    }

    void size_isThatOfTextsToo()
    {
        // A square, and words that begin in it and end far to the right of it.
        const QByteArray label =
            sheet("<rect x=\"10\" y=\"10\" width=\"20\" height=\"20\" fill=\"none\" "
                  "stroke=\"red\"/><text x=\"12\" y=\"28\" font-size=\"10\" "
                  "font-family=\"DejaVu Sans\">Serial WM</text>");
        studio::ImportDialog *dialog = offer(label);
        const double foundMm = size(dialog, "importWidth")->value();
        import(dialog);
        QVERIFY(foundMm > 40.0);
        QVERIFY2(qAbs(widthOfAllMm() - foundMm) < 0.005,
                 qPrintable(QString::number(widthOfAllMm())));
        studio->edit().undo();

        dialog = offer(label);
        enter(size(dialog, "importWidth"), "80");
        import(dialog);
        QVERIFY2(qAbs(widthOfAllMm() - 80.0) < 0.005, qPrintable(QString::number(widthOfAllMm())));
    }

    void textsAlone_canBeSized()
    {
        studio::ImportDialog *dialog =
            offer(sheet("<text x=\"12\" y=\"28\" font-size=\"10\" "
                        "font-family=\"DejaVu Sans\" transform=\"rotate(30)\">WM</text>"));
        enter(size(dialog, "importWidth"), "33");
        QVERIFY(size(dialog, "importHeight")->value() > 1.0);
        import(dialog);
        QVERIFY2(qAbs(widthOfAllMm() - 33.0) < 0.005, qPrintable(QString::number(widthOfAllMm())));
    }

    void missingFont_isSaidInTheReport()
    {
        studio::ImportDialog *dialog = offer(sheet("<text x=\"12\" y=\"28\" font-size=\"10\" "
                                                   "font-family=\"No Such Family\">WM</text>"));
        const auto *notes = dialog->findChild<QListWidget *>(QStringLiteral("importNotes"));
        QCOMPARE(notes->count(), 1);
        // Wrapped, so that all of it is in sight.
        const QRect place = notes->visualItemRect(notes->item(0));
        QVERIFY(place.width() <= notes->viewport()->width());
        QVERIFY(place.height() >= 2 * notes->fontMetrics().lineSpacing());
        QVERIFY2(notes->item(0)->text().startsWith(
                     QStringLiteral("changed: font \"No Such Family\", which is not installed")),
                 qPrintable(notes->item(0)->text()));
    }

    void picture_showsTextsWhole_inTheMiddle_data()
    {
        QTest::addColumn<QByteArray>("anchor");
        QTest::newRow("to the right of its place") << QByteArray("start");
        QTest::newRow("to the left of its place") << QByteArray("end");
    }

    void picture_showsTextsWhole_inTheMiddle()
    {
        QFETCH(QByteArray, anchor);
        studio::ImportDialog *dialog =
            offer(sheet("<rect x=\"49\" y=\"45\" width=\"2\" height=\"2\" fill=\"none\" "
                        "stroke=\"black\"/><text x=\"50\" y=\"50\" font-size=\"8\" "
                        "font-family=\"DejaVu Sans\" text-anchor=\"" +
                        anchor + "\">SERIAL NUMBER</text>"));
        const QImage image = dialog->findChild<studio::ImportPicture *>()->grab().toImage();
        const QRect ink = inkOf(image);
        // As wide as its margin of 8 pixels leaves room.
        QVERIFY2(qAbs(ink.left() - 8) <= 2, qPrintable(QString::number(ink.left())));
        QVERIFY2(qAbs(image.width() - 1 - ink.right() - 8) <= 2,
                 qPrintable(QString::number(ink.right())));
        QVERIFY2(qAbs(ink.center().y() - image.height() / 2) <= 2,
                 qPrintable(QString::number(ink.center().y())));
    }

private:
    studio::ImportDialog *offer(const QByteArray &drawing)
    {
        studio->window->editor().offerFile(studio->write("words.svg", drawing));
        QCoreApplication::processEvents();
        for (auto *dialog : studio->window->findChildren<studio::ImportDialog *>()) {
            if (dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }

    static void import(studio::ImportDialog *dialog)
    {
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    static QDoubleSpinBox *size(studio::ImportDialog *dialog, const char *name)
    {
        return dialog->findChild<QDoubleSpinBox *>(QLatin1String(name));
    }

    static void enter(QDoubleSpinBox *box, const char *text)
    {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QLatin1String(text));
        QTest::keyClick(box, Qt::Key_Tab);
    }

    /** Of the lines of all shapes. */
    double widthOfAllMm()
    {
        QPolygonF cornersPx;
        for (const studio::ShapeItem *item : studio::shapeItemsOf(studio->scene())) {
            const QRectF linesPx = item->getShapeBase()->getLines().boundingRect();
            cornersPx << linesPx.topLeft() + item->pos() << linesPx.bottomRight() + item->pos();
        }
        return ZTCoord::getInstance()->pix2mm(cornersPx.boundingRect().width());
    }

    std::unique_ptr<TextWindow> studio;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_importText>(argc, argv); }
#include "tst_studio_importText.moc"
