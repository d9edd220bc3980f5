#include <codekit/CodeMarks.h>

#include <QtCore/QLineF>
#include <QtTest/QtTest>

#include <random>

using namespace codekit;

namespace {

/** A symbol drawn in the test: '#' is dark. */
CodeSymbol drawn(const QStringList &rows, CodeKind kind = CodeKind::DataMatrix)
{
    CodeSymbol symbol;
    symbol.kind = kind;
    symbol.rows = rows.size();
    symbol.columns = rows.first().size();
    symbol.dark = QBitArray(symbol.rows * symbol.columns);
    for (int row = 0; row < symbol.rows; ++row) {
        symbol.rowModules.append(1.0);
        for (int column = 0; column < symbol.columns; ++column)
            symbol.dark.setBit(row * symbol.columns + column,
                               rows[row][column] == QLatin1Char('#'));
    }
    return symbol;
}

CodeSymbol drawn(std::initializer_list<const char *> rows, CodeKind kind = CodeKind::DataMatrix)
{
    QStringList list;
    for (const char *row : rows)
        list << QString::fromLatin1(row);
    return drawn(list, kind);
}

CodeForm form(CodeStyle style, double moduleMm = 1.0)
{
    CodeForm made;
    made.style = style;
    made.moduleMm = moduleMm;
    return made;
}

CodeMarks marked(const CodeSymbol &symbol, const CodeForm &form)
{
    CodeMarks marks;
    QString reason;
    if (!markCode(symbol, form, &marks, &reason))
        qWarning("not marked: %s", qPrintable(reason));
    return marks;
}

QString refusal(const CodeSymbol &symbol, const CodeForm &form)
{
    CodeMarks marks;
    QString reason;
    return markCode(symbol, form, &marks, &reason) ? QStringLiteral("marked") : reason;
}

/** Area by the shoelace formula, all outlines together: holes take theirs away. */
double areaOf(const QPainterPath &path)
{
    double sum = 0.0;
    for (const QPolygonF &polygon : path.toSubpathPolygons()) {
        for (int at = 0; at + 1 < polygon.size(); ++at)
            sum += polygon[at].x() * polygon[at + 1].y() - polygon[at + 1].x() * polygon[at].y();
    }
    return sum / 2.0;
}

} // namespace

class TestCodeMarks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void merged_hasNoLineInside()
    {
        const CodeMarks marks = marked(drawn({"##", "##"}), form(CodeStyle::Merged, 0.5));
        const auto polygons = marks.areas.toSubpathPolygons();
        QCOMPARE(polygons.size(), 1);
        QCOMPARE(polygons[0], QPolygonF({{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}));
        QCOMPARE(marks.symbolMm, QRectF(0, 0, 1, 1));
        QCOMPARE(marks.fieldMm, QRectF(-0.5, -0.5, 2, 2));
    }

    void merged_hasHolesAsOutlines()
    {
        const CodeMarks marks = marked(drawn({"###", "#.#", "###"}), form(CodeStyle::Merged));
        const auto polygons = marks.areas.toSubpathPolygons();
        QCOMPARE(polygons.size(), 2);
        QCOMPARE(areaOf(marks.areas), 8.0);
        QVERIFY(marks.areas.contains(QPointF(0.5, 1.5)));
        QVERIFY(!marks.areas.contains(QPointF(1.5, 1.5)));
    }

    void merged_keepsCornersApart()
    {
        const CodeMarks marks = marked(drawn({"#.", ".#"}), form(CodeStyle::Merged));
        QCOMPARE(marks.areas.toSubpathPolygons().size(), 2);
        const CodeMarks other = marked(drawn({".#", "#."}), form(CodeStyle::Merged));
        QCOMPARE(other.areas.toSubpathPolygons().size(), 2);
    }

    void merged_hasTheAreaOfItsModules_random()
    {
        std::mt19937 random(13);
        for (int round = 0; round < 500; ++round) {
            const int rows = 1 + int(random() % 12);
            const int columns = 1 + int(random() % 12);
            QStringList lines;
            int dark = 0;
            for (int row = 0; row < rows; ++row) {
                QString line;
                for (int column = 0; column < columns; ++column) {
                    const bool isDark = random() % 2 == 0;
                    dark += isDark ? 1 : 0;
                    line += QLatin1Char(isDark ? '#' : '.');
                }
                lines << line;
            }
            const CodeSymbol symbol = drawn(lines);
            const CodeMarks marks = marked(symbol, form(CodeStyle::Merged));
            QCOMPARE(areaOf(marks.areas), double(dark));
            for (int row = 0; row < rows; ++row) {
                for (int column = 0; column < columns; ++column) {
                    QCOMPARE(marks.areas.contains(QPointF(column + 0.5, row + 0.5)),
                             symbol.isDark(row, column));
                }
            }
            QCOMPARE(marked(symbol, form(CodeStyle::Squares)).areas.toSubpathPolygons().size(),
                     dark);
            QCOMPARE(marked(symbol, form(CodeStyle::Points)).points.size(), dark);
        }
    }

    void growth_isTakenOffEachSide()
    {
        CodeForm grown = form(CodeStyle::Merged);
        grown.growthMm = 0.2;
        // A square of 3 with a hole of 1: the beam gives 0.1 back on every side.
        const CodeMarks marks = marked(drawn({"###", "#.#", "###"}), grown);
        QCOMPARE(marks.areas.boundingRect(), QRectF(0.1, 0.1, 2.8, 2.8));
        QVERIFY(qAbs(areaOf(marks.areas) - (2.8 * 2.8 - 1.2 * 1.2)) < 1e-9);
        grown.style = CodeStyle::Bars;
        QCOMPARE(marked(drawn({"##"}), grown).areas.boundingRect(), QRectF(0.1, 0.1, 1.8, 0.8));
    }

    void dots_haveTheirShareOfTheModule()
    {
        CodeForm dots = form(CodeStyle::Dots, 0.5);
        dots.dotShare = 0.8;
        const CodeMarks marks = marked(drawn({"#"}), dots);
        const QRectF box = marks.areas.boundingRect();
        QVERIFY(qAbs(box.width() - 0.4) < 1e-9 && qAbs(box.height() - 0.4) < 1e-9);
        QVERIFY(qAbs(box.center().x() - 0.25) < 1e-9);
    }

    void rows_runThereAndBack()
    {
        const CodeMarks marks = marked(drawn({"###", "###"}), form(CodeStyle::Points));
        QCOMPARE(marks.points,
                 QVector<QPointF>(
                     {{0.5, 0.5}, {1.5, 0.5}, {2.5, 0.5}, {2.5, 1.5}, {1.5, 1.5}, {0.5, 1.5}}));
    }

    void bars_haveTheirHeight()
    {
        CodeForm bars = form(CodeStyle::Bars, 0.33);
        bars.heightMm = 12.0;
        const CodeSymbol symbol = drawn({"##.#"}, CodeKind::Code128);
        const CodeMarks marks = marked(symbol, bars);
        const auto polygons = marks.areas.toSubpathPolygons();
        QCOMPARE(polygons.size(), 2);
        QCOMPARE(polygons[0].boundingRect(), QRectF(0, 0, 0.66, 12));
        QCOMPARE(codeSizeMm(symbol, bars), QSizeF(4 * 0.33, 12));
        QCOMPARE(marks.fieldMm, QRectF(-3.3, 0, 4 * 0.33 + 6.6, 12));
        bars.style = CodeStyle::BarLines;
        const CodeMarks lines = marked(symbol, bars);
        QCOMPARE(lines.lines.size(), 3);
        QCOMPARE(lines.lines[0], QLineF(0.165, 0, 0.165, 12));
        QVERIFY(lines.areas.isEmpty());
    }

    void width_isThatOfFirstToLastBar_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("content");
        QTest::addColumn<int>("modules"); // from the first dark edge to the last
        QTest::addColumn<int>("left");    // of the quiet zone
        QTest::addColumn<int>("right");
        const auto row = [](CodeKind kind, const char *content, int modules, int left, int right) {
            QTest::addRow("%s %s", infoOf(kind).name, content)
                << int(kind) << QString::fromLatin1(content) << modules << left << right;
        };
        // Characters of 11, a stop of 13.
        row(CodeKind::Code128, "A", 3 * 11 + 13, 10, 10);
        row(CodeKind::Gs1_128, "[10]A", 6 * 11 + 13, 10, 10);
        // Six narrow and three wide of 2, a gap between two characters.
        row(CodeKind::Code39, "A", 3 * 12 + 2, 10, 10);
        row(CodeKind::Code39Extended, "a", 4 * 12 + 3, 10, 10);
        // Start, character, two checks and stop of 9, a last bar.
        row(CodeKind::Code93, "A", 5 * 9 + 1, 10, 10);
        // Letters have three wide of seven, digits two, ':' three; a gap between two.
        row(CodeKind::Codabar, "A1B", 10 + 9 + 10 + 2, 10, 10);
        row(CodeKind::Codabar, "A12:4C", 10 + 9 + 9 + 10 + 9 + 10 + 5, 10, 10);
        // Three narrow and two wide of 3 a digit, between a start of 4 and a stop of 5.
        row(CodeKind::Interleaved25, "12", 4 + 2 * 9 + 5, 10, 10);
        row(CodeKind::Itf14, "1540014128876", 4 + 14 * 9 + 5, 10, 10);
        row(CodeKind::Ean13, "400638133393", 3 + 6 * 7 + 5 + 6 * 7 + 3, 11, 7);
        row(CodeKind::Ean8, "7351353", 3 + 4 * 7 + 5 + 4 * 7 + 3, 7, 7);
        row(CodeKind::UpcA, "03600029145", 3 + 6 * 7 + 5 + 6 * 7 + 3, 9, 9);
        row(CodeKind::UpcE, "123456", 3 + 6 * 7 + 6, 9, 7);
    }

    void width_isThatOfFirstToLastBar()
    {
        QFETCH(int, kind);
        QFETCH(QString, content);
        QFETCH(int, modules);
        QFETCH(int, left);
        QFETCH(int, right);
        CodeSpec asked;
        asked.kind = CodeKind(kind);
        asked.content = content;
        CodeSymbol symbol;
        QString reason;
        QVERIFY2(encodeCode(asked, &symbol, &reason), qPrintable(reason));
        QCOMPARE(symbol.columns, modules);

        const double widthMm = 40.0;
        const double moduleMm = widthMm / modules;
        CodeForm bars = form(CodeStyle::Bars, moduleForWidth(symbol, widthMm));
        const QRectF dark = marked(symbol, bars).areas.boundingRect();
        QVERIFY(qAbs(dark.left()) < 1e-9);
        QVERIFY2(qAbs(dark.right() - widthMm) < 1e-9, qPrintable(QString::number(dark.right())));
        const QRectF field = marked(symbol, bars).fieldMm;
        QVERIFY(qAbs(field.left() + left * moduleMm) < 1e-9);
        QVERIFY(qAbs(field.right() - widthMm - right * moduleMm) < 1e-9);
        bars.isInverse = true; // marks the quiet zone
        const QRectF light = marked(symbol, bars).areas.boundingRect();
        QVERIFY(qAbs(light.left() + left * moduleMm) < 1e-9);
        QVERIFY(qAbs(light.right() - widthMm - right * moduleMm) < 1e-9);
    }

    void width_testHasEveryLinearKind()
    {
        int kinds = 0;
        for (const CodeKindInfo &info : codeKinds())
            kinds += info.isLinear ? 1 : 0;
        QCOMPARE(kinds, 12); // each has a row above
    }

    void linesOfSquares_runAlongTheRows_andBackByTurns()
    {
        CodeForm lines = form(CodeStyle::BarLines);
        lines.growthMm = 0.4;
        const CodeMarks marks = marked(drawn({"##.#", ".###", "#..."}), lines);
        // A beam of 0.4 mm marks 0.2 mm beyond each end.
        QCOMPARE(marks.lines,
                 QVector<QLineF>({QLineF(0.2, 0.5, 1.8, 0.5), QLineF(3.2, 0.5, 3.8, 0.5),
                                  QLineF(3.8, 1.5, 1.2, 1.5), QLineF(0.2, 2.5, 0.8, 2.5)}));
        lines.growthMm = 1.0; // a beam as wide as the module: of a module alone a point is left
        const CodeMarks wide = marked(drawn({"#.##"}), lines);
        QCOMPARE(wide.lines,
                 QVector<QLineF>({QLineF(0.5, 0.5, 0.5, 0.5), QLineF(2.5, 0.5, 3.5, 0.5)}));
        lines.growthMm = 1.1;
        QCOMPARE(refusal(drawn({"#"}), lines),
                 QStringLiteral("the growth is less than the module, and not negative"));
    }

    void inverse_marksTheLightAndTheQuietZone()
    {
        CodeForm inverse = form(CodeStyle::Merged);
        inverse.isInverse = true;
        const CodeMarks marks = marked(drawn({"#"}), inverse);
        QCOMPARE(marks.areas.boundingRect(), QRectF(-1, -1, 3, 3));
        QCOMPARE(areaOf(marks.areas), 8.0);
        QCOMPARE(marks.symbolMm, QRectF(0, 0, 1, 1));
    }

    void width_givesTheModule()
    {
        const CodeSymbol symbol = drawn({"##########"});
        QCOMPARE(moduleForWidth(symbol, 9.0), 0.9);
        QCOMPARE(codeSizeMm(symbol, form(CodeStyle::Merged, 0.9)).width(), 9.0);
    }

    void formOutOfRange_isRefused()
    {
        const CodeSymbol symbol = drawn({"#"});
        const QString module = QStringLiteral("the module is more than 0 mm and at most 100 m");
        QCOMPARE(refusal(symbol, form(CodeStyle::Merged, 0.0)), module);
        QCOMPARE(refusal(symbol, form(CodeStyle::Merged, qQNaN())), module);
        QCOMPARE(refusal(symbol, form(CodeStyle::Merged, qInf())), module);
        CodeForm grown = form(CodeStyle::Merged);
        grown.growthMm = 1.0;
        QCOMPARE(refusal(symbol, grown),
                 QStringLiteral("the growth is less than the module, and not negative"));
        CodeForm dots = form(CodeStyle::Dots);
        dots.dotShare = 1.1;
        QCOMPARE(refusal(symbol, dots),
                 QStringLiteral("a dot is more than nothing and at most as wide as the module"));
        dots.dotShare = 0.5;
        dots.growthMm = 0.5;
        QCOMPARE(refusal(symbol, dots), QStringLiteral("the growth leaves nothing of the dots"));
    }
};

QTEST_GUILESS_MAIN(TestCodeMarks)
#include "tst_CodeMarks.moc"
