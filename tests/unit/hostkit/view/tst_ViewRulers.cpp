#include <support/SingletonGuard.h>

#include <hostkit/view/ViewRulers.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

/** Rulers beside a document, in step with its view. */
class tst_ViewRulers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        document = new ZTGraphicsDocument;
        rulers.reset(new hostkit::ViewRulers(document));
        rulers->resize(820, 620);
        rulers->show();
        QVERIFY(QTest::qWaitForWindowExposed(rulers.get()));
        document->slotViewResize(); // scale 1, the origin in the middle
    }
    void cleanup()
    {
        rulers.reset();
        guard.reset();
    }

    void document_fillsTheRest()
    {
        QCOMPARE(document->geometry(), QRect(20, 20, 800, 600));
        QCOMPARE(rulers->horizontal().geometry(), QRect(20, 0, 800, 20));
        QCOMPARE(rulers->vertical().geometry(), QRect(0, 20, 20, 600));
    }

    void zero_standsOverTheOriginOfTheScene()
    {
        const QPointF zero = originOnDocument();
        QCOMPARE(rulers->horizontal().getOrigin() * rulers->horizontal().getTickStep(), -zero.x());
        QCOMPARE(rulers->vertical().getOrigin() * rulers->vertical().getTickStep(), -zero.y());
    }

    void rulers_followScrollingAndZoom()
    {
        document->view()->centerOn(300, -200);
        zero_standsOverTheOriginOfTheScene();
        document->view()->resetSize(4.0);
        zero_standsOverTheOriginOfTheScene();
    }

    void tick_thatSaysTwentyMillimetres_standsThere()
    {
        // At 4.66 pixels a millimetre the first strong tick beside zero says 20.
        const QImage shown = rulers->horizontal().grab().toImage();
        const int zero = qRound(originOnDocument().x());
        const int twentyMm = int(zero + 20.0 * 900.0 / 193.0);
        for (const int x : {zero, twentyMm})
            QVERIFY2(hasStrongTick(shown, x), qPrintable(QString::number(x)));
        QVERIFY(!hasStrongTick(shown, zero + 46));
    }

    void hidden_leaveTheirRoomToTheDocument()
    {
        rulers->setRulersVisible(false);
        QVERIFY(!rulers->areRulersVisible());
        QCoreApplication::processEvents();
        QTRY_COMPARE(document->geometry(), QRect(0, 0, 820, 620));
        rulers->setRulersVisible(true);
        QVERIFY(rulers->areRulersVisible());
        QTRY_COMPARE(document->geometry(), QRect(20, 20, 800, 600));
    }

private:
    QPointF originOnDocument() const
    {
        const ZTGraphicsView &view = *document->view();
        return view.viewportTransform().map(QPointF()) + view.viewport()->mapTo(document, QPoint());
    }

    /** Strong ticks begin ten pixels from the top; one pixel to either side counts. */
    static bool hasStrongTick(const QImage &image, int x)
    {
        for (int near = x - 1; near <= x + 1; ++near) {
            bool isDark = true;
            for (int y = 11; y < 15; ++y)
                isDark = isDark && qGray(image.pixel(near, y)) < 128;
            if (isDark)
                return true;
        }
        return false;
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<hostkit::ViewRulers> rulers;
    ZTGraphicsDocument *document = nullptr; ///< child of the rulers
};

QTEST_MAIN(tst_ViewRulers)
#include "tst_ViewRulers.moc"
