#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <codekit/shape/CodeShape.h>

#include <QtCore/QDataStream>
#include <QtTest/QtTest>

#include <cmath>

using namespace codekit;

namespace {

bool isAbout(double actual, double expected, double within = 1e-9)
{
    return std::abs(actual - expected) <= within;
}

QRectF linesMm(const CodeShape &shape)
{
    return ZTCoord::getInstance()->getPix2MmTransform().mapRect(
        shape.getLines().controlPointRect());
}

CodeSettings of(CodeKind kind)
{
    CodeSettings settings;
    settings.spec.kind = kind;
    return settings;
}

QByteArray saved(const CodeShape &shape)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    shape.save(out);
    return bytes;
}

bool load(CodeShape *shape, const QByteArray &bytes)
{
    QDataStream in(bytes);
    shape->load(in);
    shape->paint();
    return in.status() == QDataStream::Ok && in.atEnd();
}

/** Whether a point of the shape's frame lies in what its outlines enclose. */
bool isMarkedAt(const CodeShape &shape, const QPointF &pointMm)
{
    QPainterPath area = shape.getLines();
    area.setFillRule(Qt::OddEvenFill);
    return area.contains(pointMm * ZTCoord::getInstance()->mm2pix(1.0));
}

} // namespace

class TestCodeShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        singletons.reset(new testsupport::SingletonGuard);
    }
    void cleanup()
    {
        singletons.reset();
        warnings.reset();
    }

    void newShape_isACodeThatCanBeRead_andKeepsItsProportions()
    {
        CodeShape shape(CodeKind::DataMatrix);
        shape.paint();
        QCOMPARE(shape.text(), QStringLiteral("SN-0001"));
        QCOMPARE(shape.getFixedText(), QStringLiteral("SN-0001"));
        QCOMPARE(shape.notReadyReason(), QString());
        QCOMPARE(shape.symbol().reads, QStringLiteral("SN-0001"));
        QCOMPARE(shape.symbol().columns, 12); // three characters and two pairs of digits
        QCOMPARE(shape.getRect(), QRectF(0, 0, 6, 6));
        QVERIFY(shape.getLockAspectRatio());
        QVERIFY(shape.getShapeType() == ShapeType::QRCode);
        QVERIFY(!shape.getFillLines().isEmpty());
    }

    void modules_standWhereTheSymbolHasThem()
    {
        CodeShape shape(CodeKind::DataMatrix);
        shape.paint();
        const CodeSymbol &symbol = shape.symbol();
        for (int row = 0; row < symbol.rows; ++row) {
            for (int column = 0; column < symbol.columns; ++column) {
                const QPointF middleMm((column + 0.5) * 0.5, (row + 0.5) * 0.5);
                QCOMPARE(isMarkedAt(shape, middleMm), symbol.isDark(row, column));
            }
        }
        const QRectF box = linesMm(shape);
        QVERIFY(isAbout(box.left(), 0.0) && isAbout(box.top(), 0.0));
        QVERIFY(isAbout(box.width(), 6.0) && isAbout(box.height(), 6.0));
    }

    void hatch_liesInTheDarkModulesAlone()
    {
        CodeShape shape(CodeKind::DataMatrix);
        shape.paint();
        const CodeSymbol &symbol = shape.symbol();
        const double mm = ZTCoord::getInstance()->pix2mm(1.0);
        for (const QLineF &line : shape.getFillLines()) {
            const double y = line.y1() * mm;
            const double from = std::min(line.x1(), line.x2()) * mm;
            const double to = std::max(line.x1(), line.x2()) * mm;
            for (double x = from + 0.05; x < to - 0.01; x += 0.1)
                QVERIFY(symbol.isDark(int(y / 0.5), int(x / 0.5)));
        }
    }

    void inverse_marksTheQuietZoneAsItsFrame_andTheCodeStays()
    {
        CodeShape shape(CodeKind::DataMatrix);
        CodeSettings settings = of(CodeKind::DataMatrix);
        settings.form.isInverse = true;
        shape.setCode(settings, QStringLiteral("SN-0001"));
        const QRectF box = linesMm(shape);
        QVERIFY(isAbout(box.left(), -0.5) && isAbout(box.top(), -0.5));
        QVERIFY(isAbout(box.width(), 7.0) && isAbout(box.height(), 7.0));
        QCOMPARE(shape.getRect(), QRectF(0, 0, 6, 6));
        QVERIFY(isMarkedAt(shape, {-0.25, 3.0}));
        QVERIFY(!isMarkedAt(shape, {0.25, 3.0})); // the finder's left side is dark, so not marked
    }

    void growth_isTakenOffBothSides()
    {
        CodeShape shape(CodeKind::DataMatrix);
        CodeSettings settings = of(CodeKind::DataMatrix);
        settings.form.growthMm = 0.1;
        shape.setCode(settings, QStringLiteral("SN-0001"));
        const QRectF box = linesMm(shape);
        QVERIFY(isAbout(box.left(), 0.05) && isAbout(box.bottom(), 5.95));
    }

    void width_tellsTheModule()
    {
        CodeShape shape(CodeKind::DataMatrix);
        CodeSettings settings = of(CodeKind::DataMatrix);
        settings.isSizedByWidth = true;
        settings.widthMm = 18.0;
        shape.setCode(settings, QStringLiteral("SN-0001"));
        QVERIFY(isAbout(shape.form().moduleMm, 1.5));
        QVERIFY(isAbout(shape.getRect().width(), 18.0));
    }

    void dots_areRoundWhateverAMillimetreIsOnTheScreen()
    {
        ZTCoord::getInstance()->setDisplayRatio(0.1); // a dot is hardly two tenths of a pixel
        CodeShape shape(CodeKind::DataMatrix);
        CodeSettings settings = of(CodeKind::DataMatrix);
        settings.form.style = CodeStyle::Dots;
        shape.setCode(settings, QStringLiteral("SN-0001"));
        const double mm = ZTCoord::getInstance()->pix2mm(1.0);
        const QList<QPolygonF> dots = shape.getLines().toSubpathPolygons();
        QCOMPARE(dots.size(), shape.symbol().dark.count(true));
        for (const QPolygonF &dot : dots) {
            const QPointF middle = dot.boundingRect().center();
            for (const QPointF &point : dot)
                QVERIFY(isAbout(QLineF(middle, point).length() * mm, 0.2, 0.003));
        }
    }

    void squares_areMarkedRowByRow()
    {
        CodeShape shape(CodeKind::DataMatrix);
        CodeSettings settings = of(CodeKind::DataMatrix);
        settings.form.style = CodeStyle::Squares;
        shape.setCode(settings, QStringLiteral("SN-0001"));
        double top = -1.0;
        for (const QPolygonF &square : shape.getLines().toSubpathPolygons()) {
            QVERIFY(square.boundingRect().top() >= top - 1e-9);
            top = square.boundingRect().top();
        }
    }

    void contentThatCannotBeEncoded_leavesTheLastCode()
    {
        CodeShape shape(CodeKind::DataMatrix);
        CodeSettings settings = of(CodeKind::Code39);
        shape.setCode(settings, QStringLiteral("AB12"));
        const QPainterPath good = shape.getLines();
        shape.setText(QStringLiteral("ab12"));
        QCOMPARE(shape.text(), QStringLiteral("ab12"));
        QCOMPARE(shape.notReadyReason(),
                 QStringLiteral("Code 39 has no small letters: use Code 128"));
        QCOMPARE(shape.symbol().reads, QStringLiteral("AB12"));
        QCOMPARE(shape.getLines(), good);
        shape.setText(QStringLiteral("CD34"));
        QCOMPARE(shape.notReadyReason(), QString());
        QCOMPARE(shape.symbol().reads, QStringLiteral("CD34"));
    }

    void settingsOutOfTheirRange_leaveTheLastCode()
    {
        CodeShape shape(CodeKind::DataMatrix);
        shape.paint();
        CodeSettings settings = of(CodeKind::DataMatrix);
        settings.form.growthMm = 0.5; // as wide as the module
        shape.setCode(settings, QStringLiteral("SN-0002"));
        QVERIFY(!shape.notReadyReason().isEmpty());
        QCOMPARE(shape.symbol().reads, QStringLiteral("SN-0001"));
        QCOMPARE(shape.getRect(), QRectF(0, 0, 6, 6));
    }

    void kind_tellsTheTypeOfTheShape()
    {
        CodeShape shape(CodeKind::Code128);
        QVERIFY(shape.getShapeType() == ShapeType::BarCode);
        shape.setCode(of(CodeKind::Qr), QStringLiteral("1"));
        QVERIFY(shape.getShapeType() == ShapeType::QRCode);
        QCOMPARE(shape.symbol().columns, 21);
    }

    void humanText_standsBelowTheQuietZone_andIsHatchedWithTheCode()
    {
        CodeShape shape(CodeKind::DataMatrix);
        CodeSettings settings = of(CodeKind::DataMatrix);
        settings.human.place = HumanPlace::Below;
        settings.human.font = QFont(QStringLiteral("DejaVu Sans"));
        settings.human.heightMm = 2.0;
        shape.setCode(settings, QStringLiteral("HHH"));
        const QRectF box = linesMm(shape);
        const QSizeF size = codeSizeMm(shape.symbol(), shape.form());
        // Code, a module of quiet zone, a module of room, letters.
        QVERIFY(isAbout(box.bottom(), size.height() + 1.0 + 2.0, 1e-6));
        QVERIFY(isAbout(box.top(), 0.0));
        settings.human.place = HumanPlace::Above;
        shape.setCode(settings, QStringLiteral("HHH"));
        QVERIFY(isAbout(linesMm(shape).top(), -3.0, 1e-6));
        QVERIFY(isAbout(linesMm(shape).bottom(), size.height(), 1e-6));
        const double mm = ZTCoord::getInstance()->pix2mm(1.0);
        const auto &hatch = shape.getFillLines();
        QVERIFY(std::any_of(hatch.begin(), hatch.end(),
                            [mm](const QLineF &line) { return line.y1() * mm < -1.5; }));
    }

    void singleLines_areNeverHatched_andStayWithoutOutlines()
    {
        CodeShape shape(CodeKind::Code128);
        CodeSettings settings = of(CodeKind::Code128);
        settings.form.style = CodeStyle::BarLines;
        shape.setCode(settings, QStringLiteral("A1"));
        const int lines = shape.symbol().dark.count(true);
        QCOMPARE(shape.getLines().toSubpathPolygons().size(), lines);
        QVERIFY(shape.getFillLines().isEmpty());
        ZTFillParam fill = shape.getFillParam();
        fill.isEnableBorder = false;
        shape.setFillParam(fill);
        QCOMPARE(shape.getFillLines().size(), lines);
    }

    void copy_isIndependent_andKeepsTheVariantText()
    {
        CodeShape shape(CodeKind::DataMatrix);
        ZTVariantText serial;
        serial.setSegments({ZTCounterSegment{}});
        shape.cloneVariantText(&serial);
        shape.setEnableVariantText(true);
        shape.fromVariantTextUpdateText();
        CodeShape copy(shape);
        copy.fromVariantTextUpdateText();
        QCOMPARE(shape.symbol().reads, QStringLiteral("1"));
        QCOMPARE(copy.symbol().reads, QStringLiteral("2"));
        copy.setCode(of(CodeKind::Qr), QStringLiteral("2"));
        QVERIFY(shape.settings().spec.kind == CodeKind::DataMatrix);
    }

    void bytes_bringEverythingBack_alsoWhatIsShownInPlaceOfABadContent()
    {
        CodeShape shape(CodeKind::Code39);
        CodeSettings settings = of(CodeKind::Code39);
        settings.form.heightMm = 4.0;
        shape.setCode(settings, QStringLiteral("AB12"));
        shape.setPenId(5);
        shape.setTransformParam(QTransform().rotate(30));
        shape.setText(QStringLiteral("ab12"));
        CodeShape loaded(CodeKind::Qr);
        QVERIFY(load(&loaded, saved(shape)));
        QCOMPARE(loaded.text(), QStringLiteral("ab12"));
        QCOMPARE(loaded.notReadyReason(), shape.notReadyReason());
        QCOMPARE(loaded.symbol().reads, QStringLiteral("AB12"));
        QCOMPARE(loaded.getLines(), shape.getLines());
        QCOMPARE(loaded.getFillLines(), shape.getFillLines());
        QCOMPARE(loaded.getPenId(), 5);
        QVERIFY(loaded.settings() == settings);
        QCOMPARE(saved(loaded), saved(shape));
    }

    void settingsOfALaterVersion_areKeptAndSavedAgain()
    {
        CodeShape shape(CodeKind::DataMatrix);
        shape.paint();
        QByteArray bytes = saved(shape);
        const QByteArray settings = codeSettingsToBytes(shape.settings());
        const int at = bytes.indexOf(settings);
        QVERIFY(at > 0);
        bytes[at] = 9; // its version
        CodeShape loaded(CodeKind::DataMatrix);
        QVERIFY(load(&loaded, bytes));
        QVERIFY(!loaded.notReadyReason().isEmpty());
        QVERIFY(loaded.getLines().isEmpty());
        QCOMPARE(saved(loaded), bytes);
        loaded.setCode(of(CodeKind::DataMatrix), QStringLiteral("X"));
        QCOMPARE(loaded.notReadyReason(), QString());
        QCOMPARE(loaded.symbol().reads, QStringLiteral("X"));
    }

    void everyCutOfABytesRecord_isToldAndNeverDrawn()
    {
        CodeShape shape(CodeKind::DataMatrix);
        shape.paint();
        const QByteArray bytes = saved(shape);
        for (int size = 0; size < bytes.size(); ++size) {
            CodeShape loaded(CodeKind::DataMatrix);
            QVERIFY(!load(&loaded, bytes.left(size)));
            QVERIFY2(!loaded.notReadyReason().isEmpty(), QByteArray::number(size));
        }
    }

private:
    QScopedPointer<testsupport::WarningGuard> warnings;
    QScopedPointer<testsupport::SingletonGuard> singletons;
};

QTEST_MAIN(TestCodeShape)

#include "tst_CodeShape.moc"
