#include "sensors/machine/DriveRoots.h"

#include <QtTest>

class tst_DriveRoots : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsNoMoreThanFit_data();
    void listsNoMoreThanFit();
};

namespace {

/// The list of the drives with these letters, as Windows returns it.
QByteArray listOf(const QByteArray &letters)
{
    QByteArray list;
    for (const char letter : letters)
        list += QByteArray(1, letter) + QByteArray(":\\\0", 3);
    return list;
}

} // namespace

void tst_DriveRoots::listsNoMoreThanFit_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    const QString none;
    QTest::newRow("none") << QByteArray() << 0 << none << none;
    QTest::newRow("the end of the list alone") << QByteArray(1, '\0') << 0 << none << none;
    QTest::newRow("C and Z") << listOf("CZ") << 2 << QStringLiteral("C:\\")
                             << QStringLiteral("Z:\\");
    QTest::newRow("with the end of the list")
        << listOf("CZ") + '\0' << 2 << QStringLiteral("C:\\") << QStringLiteral("Z:\\");
    QTest::newRow("all") << listOf("ABCDEFGHIJKLMNOPQRSTUVWXYZ") << 25 << QStringLiteral("A:\\")
                         << QStringLiteral("Y:\\");
    QTest::newRow("without an end") << QByteArray("C:\\") << 0 << none << none;
}

void tst_DriveRoots::listsNoMoreThanFit()
{
    QFETCH(QByteArray, list);
    QFETCH(int, count);
    const QStringList roots = driveRoots(list);
    QCOMPARE(roots.size(), count);
    QTEST(roots.value(0), "first");
    QTEST(roots.value(count - 1), "last");
}

QTEST_APPLESS_MAIN(tst_DriveRoots)
#include "tst_driveroots.moc"
