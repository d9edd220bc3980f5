#include <codekit/CodeMarks.h>
#include <codekit/CodeReadback.h>

#include <QtGui/QPolygonF>
#include <QtTest/QtTest>

using namespace codekit;

namespace {

CodeSymbol encoded(CodeKind kind, const QString &content)
{
    CodeSpec spec;
    spec.kind = kind;
    spec.content = content;
    CodeSymbol symbol;
    QString reason;
    if (!encodeCode(spec, &symbol, &reason))
        qWarning("not encoded: %s", qPrintable(reason));
    return symbol;
}

/** Each dark module as lines across, `spacing` apart: a hatch drawn by the test. */
MarkedLines hatched(const CodeSymbol &symbol, double moduleMm, double barMm, double spacing)
{
    MarkedLines marks;
    marks.beamMm = spacing * 1.2;
    marks.quietMm = 10.0 * moduleMm;
    double top = 0.0;
    for (int row = 0; row < symbol.rows; ++row) {
        const double height =
            infoOf(symbol.kind).isLinear ? barMm : symbol.rowModules[row] * moduleMm;
        for (int column = 0; column < symbol.columns; ++column) {
            for (double y = top + spacing / 2; symbol.isDark(row, column) && y < top + height;
                 y += spacing)
                marks.linesMm.append({QPointF(column * moduleMm + spacing / 2, y),
                                      QPointF((column + 1) * moduleMm - spacing / 2, y)});
        }
        top += height;
    }
    return marks;
}

} // namespace

class TestCodeReadback : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void marks_readAsTheirContent_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("content");
        const auto row = [](CodeKind kind, const char *content) {
            QTest::addRow("%s", infoOf(kind).name) << int(kind) << QString::fromUtf8(content);
        };
        row(CodeKind::DataMatrix, "SN-0001");
        row(CodeKind::Qr, "SN-0001 Größe");
        row(CodeKind::MicroQr, "12345");
        row(CodeKind::Aztec, "SN-0001");
        row(CodeKind::Pdf417, "SN-0001");
        row(CodeKind::Code128, "SN-0001");
        row(CodeKind::Code39, "SN-0001");
        row(CodeKind::Code39Extended, "sn-0001");
        row(CodeKind::Code93, "SN-0001");
        row(CodeKind::Codabar, "A1234B");
        row(CodeKind::Interleaved25, "123456");
        row(CodeKind::Itf14, "15400141288763");
        row(CodeKind::Ean13, "4006381333931+12");
        row(CodeKind::Ean8, "73513537");
        row(CodeKind::UpcA, "036000291452");
        row(CodeKind::UpcE, "01234565");
        row(CodeKind::Gs1_128, "[01]04012345678901[10]LOT7");
        row(CodeKind::Gs1DataMatrix, "[01]04012345678901[10]LOT7");
    }

    void marks_readAsTheirContent()
    {
        QFETCH(int, kind);
        QFETCH(QString, content);
        const CodeSymbol symbol = encoded(CodeKind(kind), content);
        const ReadCode read = readMarks(hatched(symbol, 0.3, 5.0, 0.05), CodeKind(kind), 0.3);
        QVERIFY(read.isRead);
        QVERIFY(!read.isMirrored);
        QVERIFY2(isSameContent(CodeKind(kind), read.text, symbol.reads), qPrintable(read.text));
        QVERIFY(!isSameContent(CodeKind(kind), read.text + QLatin1Char('1'), symbol.reads));
    }

    void mirroredMarks_areToldOf_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("qr") << int(CodeKind::Qr);
        QTest::newRow("datamatrix") << int(CodeKind::DataMatrix);
    }

    void mirroredMarks_areToldOf()
    {
        QFETCH(int, kind);
        MarkedLines marks =
            hatched(encoded(CodeKind(kind), QStringLiteral("SN-0001")), 0.3, 0, 0.05);
        for (auto &line : marks.linesMm) {
            for (QPointF &point : line)
                point.rx() *= -1.0;
        }
        const ReadCode read = readMarks(marks, CodeKind(kind), 0.3);
        QVERIFY(read.isRead);
        QCOMPARE(read.text, QStringLiteral("SN-0001"));
        QVERIFY(read.isMirrored);
    }

    void turnedMarks_areReadAsTheyAre()
    {
        MarkedLines marks = hatched(encoded(CodeKind::Qr, QStringLiteral("SN-0001")), 0.3, 0, 0.05);
        for (auto &line : marks.linesMm) {
            for (QPointF &point : line)
                point = QPointF(-point.y(), point.x()); // a quarter turn
        }
        const ReadCode read = readMarks(marks, CodeKind::Qr, 0.3);
        QCOMPARE(read.text, QStringLiteral("SN-0001"));
        QVERIFY(!read.isMirrored);
    }

    void inverseMarks_areReadAsLightOnDark()
    {
        MarkedLines marks =
            hatched(encoded(CodeKind::DataMatrix, QStringLiteral("SN-0001")), 0.3, 0, 0.05);
        marks.isInverse = true;
        const QImage image = drawMarks(marks, 20.0);
        QCOMPARE(qGray(image.pixel(0, 0)), 0);
    }

    void outlinesAlone_readNothing()
    {
        const CodeSymbol symbol = encoded(CodeKind::DataMatrix, QStringLiteral("SN-0001"));
        CodeForm form;
        CodeMarks marks;
        QString reason;
        QVERIFY(markCode(symbol, form, &marks, &reason));
        MarkedLines lines;
        lines.beamMm = 0.01;
        lines.quietMm = 2.0;
        for (const QPolygonF &polygon : marks.areas.toSubpathPolygons())
            lines.linesMm.append(polygon);
        QVERIFY(!readMarks(lines, CodeKind::DataMatrix, form.moduleMm).isRead);
    }

    void picture_staysWithinItsLimit()
    {
        MarkedLines marks;
        marks.linesMm = {{QPointF(0, 0), QPointF(1e6, 1)}};
        marks.beamMm = 1.0;
        const QImage image = drawMarks(marks, 1000.0);
        QVERIFY(image.width() <= 4097 && image.width() > 0);
        marks.linesMm = {{QPointF(0, 0), QPointF(qInf(), 1)}};
        QVERIFY(drawMarks(marks, 1.0).isNull());
        QVERIFY(drawMarks(MarkedLines(), 1.0).isNull());
    }

    void kindsWithoutAReader_areNotRead()
    {
        QVERIFY(!canReadBack(CodeKind::RectMicroQr));
        QVERIFY(!canReadBack(CodeKind::MicroPdf417));
        QVERIFY(canReadBack(CodeKind::DataMatrix));
    }
};

QTEST_MAIN(TestCodeReadback)
#include "tst_CodeReadback.moc"
