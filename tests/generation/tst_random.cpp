#include "random.h"

#include <QTest>

class tst_Random : public QObject
{
    Q_OBJECT

private slots:
    // Every start of the program draws this sequence: a schedule made today must be made again tomorrow.
    void firstDraws()
    {
        LcgRandom random;
        QCOMPARE(random.next(), 0.7055475115776062);
        QCOMPARE(random.next(), 0.5334240198135376);
        QCOMPARE(random.next(), 0.5795186161994934);
    }

    void drawsStayInRange()
    {
        LcgRandom random;
        for (int i = 0; i < 100000; ++i) {
            const int period = random.draw(7);
            QVERIFY(period >= 1 && period <= 7);
        }
        ListRandom zero({0.0});
        QCOMPARE(zero.draw(0), 1); // P of 0 draws period 1
        ListRandom top({0.9999999});
        QCOMPARE(top.draw(6), 6);
    }
};

QTEST_GUILESS_MAIN(tst_Random)
#include "tst_random.moc"
