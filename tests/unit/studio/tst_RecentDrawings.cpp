#include "StudioTest.h"

#include <studio/drawing/RecentDrawings.h>
#include <studio/drawing/RecentMenu.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using studio::RecentDrawings;

class tst_RecentDrawings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioTest>(); }
    void cleanup() { studio.reset(); }

    void add_putsTheLatestFirst_eachOnce()
    {
        RecentDrawings::add(QStringLiteral("/a.ztd"));
        RecentDrawings::add(QStringLiteral("/b.ztd"));
        RecentDrawings::add(QStringLiteral("/a.ztd"));
        QCOMPARE(RecentDrawings::paths(),
                 (QStringList{QStringLiteral("/a.ztd"), QStringLiteral("/b.ztd")}));
    }

    void add_forgetsTheEleventh()
    {
        for (int i = 0; i < 11; ++i)
            RecentDrawings::add(QStringLiteral("/%1.ztd").arg(i));
        const QStringList paths = RecentDrawings::paths();
        QCOMPARE(paths.size(), 10);
        QCOMPARE(paths.first(), QStringLiteral("/10.ztd"));
        QCOMPARE(paths.last(), QStringLiteral("/1.ztd"));
    }

    void remove_andClear()
    {
        for (const char *name : {"/a.ztd", "/b.ztd", "/c.ztd"})
            RecentDrawings::add(QLatin1String(name));
        RecentDrawings::remove(QStringLiteral("/b.ztd"));
        QCOMPARE(RecentDrawings::paths(),
                 (QStringList{QStringLiteral("/c.ztd"), QStringLiteral("/a.ztd")}));
        RecentDrawings::clear();
        QVERIFY(RecentDrawings::paths().isEmpty());
    }

    void nonsenseInTheSettings_isHarmless()
    {
        QSettings().setValue(QStringLiteral("drawing/recent"), 17.5);
        QVERIFY(RecentDrawings::paths().isEmpty());
        QSettings().setValue(QStringLiteral("drawing/recent"),
                             QStringList{QString(), QStringLiteral("/a"), QStringLiteral("/a")});
        QCOMPARE(RecentDrawings::paths(), QStringList{QStringLiteral("/a")});
    }

    void menu_offersThemByNameAndTellsTheChoice()
    {
        RecentDrawings::add(QStringLiteral("/there/a&b.ztd"));
        RecentDrawings::add(QStringLiteral("/here/c.ztd"));
        studio::RecentMenu menu;
        QCOMPARE(menu.actions().at(0)->text(), QStringLiteral("&1 c.ztd"));
        QCOMPARE(menu.actions().at(1)->text(), QStringLiteral("&2 a&&b.ztd"));
        QCOMPARE(menu.actions().at(1)->toolTip(), QStringLiteral("/there/a&b.ztd"));
        QSignalSpy chosen(&menu, &studio::RecentMenu::chosen);
        menu.actions().at(1)->trigger();
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.first().first().toString(), QStringLiteral("/there/a&b.ztd"));
    }

    void menu_clearsTheList()
    {
        RecentDrawings::add(QStringLiteral("/a.ztd"));
        studio::RecentMenu menu;
        auto *forget = menu.findChild<QAction *>(QStringLiteral("recent.clear"));
        QVERIFY(forget->isEnabled());
        forget->trigger();
        QVERIFY(RecentDrawings::paths().isEmpty());
        Q_EMIT menu.aboutToShow();
        forget = menu.findChild<QAction *>(QStringLiteral("recent.clear"));
        QVERIFY(!forget->isEnabled());
    }

private:
    std::unique_ptr<StudioTest> studio;
};

QTEST_MAIN(tst_RecentDrawings)
#include "tst_RecentDrawings.moc"
