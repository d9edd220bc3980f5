#include <support/ShxWriter.h>

#include <ZTDrawEngineLib/shx/ZTAbstractGlyphCallback.h>
#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <type_traits>

namespace {

/** A host's callback: the sum of all lines. */
class InkLength : public ZTAbstractGlyphCallback
{
public:
    void glBegin() override { isFirst = true; }
    void glVertex2d(double x, double) override
    {
        if (!isFirst)
            ink += qAbs(x - lastX);
        isFirst = false;
        lastX = x;
    }
    void glEnd() override {}
    void next() override {}

    double ink = 0.0;

private:
    bool isFirst = true;
    double lastX = 0.0;
};

} // namespace

class tst_ZTAbstractGlyphCallback : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void class_isAnInterfaceWithoutDataOrVirtualDestructor()
    {
        QVERIFY(std::is_abstract<ZTAbstractGlyphCallback>::value);
        QVERIFY(!std::has_virtual_destructor<ZTAbstractGlyphCallback>::value);
        QCOMPARE(sizeof(ZTAbstractGlyphCallback), sizeof(void *));
    }

    void host_receivesStrokesThroughIt()
    {
        const QTemporaryDir folder;
        testsupport::ShxWriter writer;
        writer.glyphs = {{65, testsupport::bytes({0x30, 2, 0x50, 1, 0x20}), {}}};
        const QString path = folder.filePath(QStringLiteral("font.shx"));
        testsupport::writeFile(path, writer.shapes());
        ZTShxParser parser(path.toLocal8Bit().constData());
        InkLength callback;
        parser.drawText(&callback, "A", 0.0, 0.0);
        QCOMPARE(callback.ink, 5.0);
    }
};

QTEST_GUILESS_MAIN(tst_ZTAbstractGlyphCallback)
#include "tst_ZTAbstractGlyphCallback.moc"
